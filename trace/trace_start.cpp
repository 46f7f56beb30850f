#include "trace/trace_start.h"

#include "trace/clock.h"
#include "trace/hex_text.h"

const Protocol* start_trace(int descriptor, const char* name, bool hex_trace, ReaderObserver* observer) {
    reset_state();
    trace_reader.reset(observer);
    ifp.open(descriptor, name);
    if (!take_header(descriptor)) {
        return nullptr;
    }
    if (!hex_trace) {
        ifp.convert_by(hex_text);
    }
    const Protocol& protocol = read_protocol();
    read_ticks_resolution();
    return &protocol;
}
