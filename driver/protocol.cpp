#include "driver/protocol.h"

#include <cstdint>
#include <cstdio>

#include "driver/trace_reader.h"
#include "driver/trace_stream.h"
#include "report/lines.h"
#include "report/state.h"

namespace {

struct Protocol {
    Variant variant;
    const char* report_text;
    const char* terminal_text;
};

Protocol primary_rate(std::int32_t code) {
    switch (code) {
        case 0:
        case 14: return {NO_VARIANT, "UNSPECIFIED PROTOCOL\n", "UNSPECIFIED PROTOCOL\n"};
        case 2:
        case 3: return {PRI_4ESS, "4ESS/5ESS\n", "4ESS/5ESS\n"};
        case 7: return {PRI_DMS100, "DMS100\n", "DMS100\n"};
        case 9: return {PRI_VN3, "VN3\n", "VN3\n"};
        case 11: return {PRI_NTT, "NTT\n", "NTT\n"};
        case 12: return {PRI_1TR6, "1TR6\n", "1TR6\n"};
        case 16: return {PRI_TPH1856, "TPH1856\n", "TPH1856\n"};
        case 17: return {PRI_NET5, "NET5\n", "NET5\n"};
        case 20: return {PRI_DASS2, "DASS2\n", "DASS2\n"};
        case 23: return {PRI_DPNSS_A, "DPNSS A-End\n", "DPNSS A-End\n"};
        case 24: return {PRI_DPNSS_B, "DPNSS B-End\n", "DPNSS B-End\n"};
        case 25: return {PRI_NI2, "NI2\n", "NI2\n"};
        default: return {NO_VARIANT, "UNKNOWN PROTOCOL\n", "UNKNOWN PROTOCOL\n"};
    }
}

// Two of the report texts have a space before the line end.
Protocol basic_rate(std::int32_t code) {
    switch (code) {
        case 128: return {NO_VARIANT, "INVALID PROTOCOL\n", "INVALID PROTOCOL\n"};
        case 129: return {BRI_5ESS, "5ESS\n", "5ESS\n"};
        case 130: return {BRI_DMS100, "DMS100 \n", "DMS100\n"};
        case 131: return {BRI_NTT, "NTT\n", "NTT\n"};
        case 132: return {BRI_NET3, "NET3 \n", "NET3\n"};
        case 133: return {BRI_NI1, "NI1\n", "NI1\n"};
        case 134: return {BRI_NI2, "NI2\n", "NI2\n"};
        default: return {NO_VARIANT, "UNKNOWN PROTOCOL\n", "UNKNOWN PROTOCOL\n"};
    }
}

// These two numbers count whole, above 255 and negative too.
std::int32_t scan_or_abort() {
    std::uint32_t number = 0;
    if (!ifp.scan(number)) {
        abort_run();
    }
    return static_cast<std::int32_t>(number);
}

}  // namespace

void read_protocol() {
    const std::int32_t code = scan_or_abort();
    BRItrace = code >= 128 ? 1 : 0;
    const Protocol protocol = BRItrace != 0 ? basic_rate(code) : primary_rate(code);
    swit = protocol.variant;
    text(BRItrace != 0 ? "BRI " : "PROTOCOL TYPE                 : PRI ");
    text(protocol.report_text);
    std::printf("ISDN Protocol: %s%s", BRItrace != 0 ? "BRI " : "PRI ", protocol.terminal_text);
}

void read_ticks_resolution() { Ticks_resolution = scan_or_abort(); }
