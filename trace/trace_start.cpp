#include "trace/trace_start.h"

#include "trace/clock.h"
#include "trace/hex_text.h"
#include "trace/protocol.h"

bool start_trace(int descriptor, const char* name, bool hex_trace, ReaderObserver* observer) {
    reset_state();
    trace_reader.reset(observer);
    ifp.open(descriptor, name);
    if (!take_header(descriptor)) {
        return false;
    }
    if (!hex_trace) {
        ifp.convert_by(hex_text);
    }
    read_protocol();
    read_ticks_resolution();
    return true;
}
