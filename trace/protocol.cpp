#include "trace/protocol.h"

#include <algorithm>
#include <iterator>

#include "trace/format.h"
#include "trace/trace_reader.h"

namespace {

constexpr Protocol PROTOCOLS[] = {
    {0, NO_VARIANT, "UNSPECIFIED PROTOCOL\n", "UNSPECIFIED PROTOCOL\n"},
    {2, PRI_4ESS, "4ESS/5ESS\n", "4ESS/5ESS\n"},
    {3, PRI_4ESS, "4ESS/5ESS\n", "4ESS/5ESS\n"},
    {7, PRI_DMS100, "DMS100\n", "DMS100\n"},
    {9, PRI_VN3, "VN3\n", "VN3\n"},
    {11, PRI_NTT, "NTT\n", "NTT\n"},
    {12, PRI_1TR6, "1TR6\n", "1TR6\n"},
    {14, NO_VARIANT, "UNSPECIFIED PROTOCOL\n", "UNSPECIFIED PROTOCOL\n"},
    {16, PRI_TPH1856, "TPH1856\n", "TPH1856\n"},
    {17, PRI_NET5, "NET5\n", "NET5\n"},
    {20, PRI_DASS2, "DASS2\n", "DASS2\n"},
    {23, PRI_DPNSS_A, "DPNSS A-End\n", "DPNSS A-End\n"},
    {24, PRI_DPNSS_B, "DPNSS B-End\n", "DPNSS B-End\n"},
    {25, PRI_NI2, "NI2\n", "NI2\n"},
    {128, NO_VARIANT, "INVALID PROTOCOL\n", "INVALID PROTOCOL\n"},
    {129, BRI_5ESS, "5ESS\n", "5ESS\n"},
    {130, BRI_DMS100, "DMS100 \n", "DMS100\n"},
    {131, BRI_NTT, "NTT\n", "NTT\n"},
    {132, BRI_NET3, "NET3 \n", "NET3\n"},
    {133, BRI_NI1, "NI1\n", "NI1\n"},
    {134, BRI_NI2, "NI2\n", "NI2\n"},
};

constexpr Protocol UNKNOWN = {-1, NO_VARIANT, "UNKNOWN PROTOCOL\n", "UNKNOWN PROTOCOL\n"};

const Protocol& protocol(std::int32_t code) {
    const auto* const row = std::ranges::find(PROTOCOLS, code, &Protocol::code);
    return row != std::end(PROTOCOLS) ? *row : UNKNOWN;
}

std::int32_t scan_or_abort() {
    std::uint32_t number = 0;
    if (!ifp.scan(number)) {
        trace_reader.abort_at_end();
    }
    return static_cast<std::int32_t>(number);
}

}  // namespace

const Protocol& read_protocol() {
    const std::int32_t code = scan_or_abort();
    BRItrace = code >= BASIC_RATE_FROM ? 1 : 0;
    const Protocol& found = protocol(code);
    swit = found.variant;
    return found;
}

void read_ticks_resolution() { Ticks_resolution = scan_or_abort(); }
