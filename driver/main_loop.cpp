#include "driver/main_loop.h"

#include "dpnss/layer2.h"
#include "dpnss/layer3.h"
#include "driver/records.h"
#include "driver/trace/trace_stream.h"
#include "q931/layer2.h"
#include "q931/layer3.h"
#include "report/lines.h"
#include "report/state.h"

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

// A length left below 0 by the frame before keeps a debug or time-stamp record from being shown: what it holds is then
// taken as markers, and its kind stays noted. The next record that leaves the length at 0 is shown as that kind.
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

void decode_records() {
    const bool dpnss = variant_is(PRI_DASS2, PRI_DPNSS_A, PRI_DPNSS_B);
    while (!ifp.eof() && !ofp.lost()) {
        if (dpnss) {
            decode_dpnss_record();
        } else {
            decode_q931_record();
        }
        text("\n");
    }
}
