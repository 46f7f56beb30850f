#include "captures/trace_frames.h"

#include <algorithm>

#include "trace/clock.h"

namespace {

// The time, or the nearest one that is 32 bits of seconds after 1970. The milliseconds may be below 0 or above 999.
std::int64_t time_of(const Moment& moment) {
    constexpr std::int64_t LATEST = (std::int64_t{1} << 32U) * MICROSECONDS - 1;
    constexpr std::int64_t FAR_OFF = std::int64_t{1} << 40U;  // can be counted in microseconds
    const std::int64_t when = std::clamp(moment.seconds, -FAR_OFF, FAR_OFF) * MICROSECONDS + moment.milliseconds * 1000;
    return std::clamp(when, std::int64_t{0}, LATEST);
}

}  // namespace

// Counts the record, and takes its time. True when it is a frame to hand out.
bool TraceFrames::note_record() {
    if (record_.marker == TIME_STAMP_MARKER) {
        clock_.note(record_.octets());
    } else if (record_.marker == DEBUG_MARKER) {
        ++debug_records_;
    } else if (line_ && record_.line != *line_) {
        ++of_other_lines_;
    } else if (record_.length == 0) {
        ++empty_frames_;
    } else {
        ++frames_;
        return true;
    }
    return false;
}

bool TraceFrames::next(Frame& frame) {
    do {
        if (!reader_.next_record(record_)) {
            return false;
        }
    } while (!note_record());
    frame = {.when = time_of(moment_of(clock_.ticks().value_or(0))),
             .transmitted = record_.marker == TRANSMIT_MARKER,
             .line = static_cast<std::uint8_t>(record_.line),
             .octets = record_.octets()};
    return true;
}
