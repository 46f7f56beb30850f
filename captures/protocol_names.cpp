#include "captures/protocol_names.h"

#include <algorithm>
#include <iterator>

#include "io/options.h"
#include "report/state.h"

namespace {

struct ProtocolName {
    std::string_view name;
    std::uint8_t code;
};

constexpr std::uint8_t PRI_5ESS = 3;  // the decoder's PRI_4ESS stands for both

constexpr ProtocolName PROTOCOLS[] = {
    {"4ess", PRI_4ESS},     {"5ess", PRI_5ESS},         {"dms100", PRI_DMS100},   {"vn3", PRI_VN3},
    {"ntt", PRI_NTT},       {"1tr6", PRI_1TR6},         {"tph1856", PRI_TPH1856}, {"net5", PRI_NET5},
    {"dass2", PRI_DASS2},   {"dpnss-a", PRI_DPNSS_A},   {"dpnss-b", PRI_DPNSS_B}, {"ni2", PRI_NI2},
    {"bri-5ess", BRI_5ESS}, {"bri-dms100", BRI_DMS100}, {"bri-ntt", BRI_NTT},     {"bri-net3", BRI_NET3},
    {"bri-ni1", BRI_NI1},   {"bri-ni2", BRI_NI2},
};

}  // namespace

std::optional<std::uint8_t> protocol_code(std::string_view word) {
    const auto* const named = std::ranges::find(PROTOCOLS, word, &ProtocolName::name);
    return named != std::end(PROTOCOLS) ? named->code : octet_number(word);
}
