#include "driver/main_loop.h"

#include "dpnss/layer2.h"
#include "dpnss/layer3.h"
#include "driver/frameless_records.h"
#include "q931/layer2.h"
#include "q931/layer3.h"
#include "report/lines.h"
#include "report/state.h"
#include "trace/trace_reader.h"

namespace {

void report_negative_length() { text("ERROR: Invalid value(s)\n"); }

void decode_dpnss_record() {
    ds2_layer2();
    if (msglen < 0) {
        report_negative_length();
    } else if (msglen > 0) {
        ds2_layer3();
    }
}

// If the previous frame has left the length below 0, a debug or time-stamp record is not shown. Its octets are then
// taken as markers, and its kind stays noted: the next record that leaves the length at 0 is shown as that kind.
void decode_q931_record() {
    layer_2();
    if (msglen < 0) {
        report_negative_length();
    } else if (msglen > 0) {
        layer_3();
    } else if (debug_msg != 0) {
        debug_record();
    } else if (time_stamp_msg == 1) {
        time_stamp_record();
    }
}

}  // namespace

void report_protocol(const Protocol& protocol) {
    text(BRItrace != 0 ? "BRI " : "PROTOCOL TYPE                 : PRI ");
    text(protocol.report_text);
}

void decode_record() {
    if (is_dpnss(swit)) {
        decode_dpnss_record();
    } else {
        decode_q931_record();
    }
    text("\n");
}

void decode_records() {
    while (!ifp.eof() && !ofp.lost()) {
        decode_record();
    }
}
