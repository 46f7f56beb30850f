#include "captures/trace_frames.h"

#include <algorithm>
#include <limits>

#include "trace/clock.h"

namespace {

// The seconds are cut to those that 32 bits can say, with a sign or without. Milliseconds below 0 or above 999 belong
// to other seconds, and count first.
std::int64_t time_of(const Moment& moment) {
    constexpr std::int64_t EARLIEST = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t LATEST = std::numeric_limits<std::uint32_t>::max();
    constexpr std::int64_t FAR_OFF = std::int64_t{1} << 40U;  // can be counted in microseconds
    const std::int64_t when = std::clamp(moment.seconds, -FAR_OFF, FAR_OFF) * MICROSECONDS + moment.milliseconds * 1000;
    return std::clamp(seconds_of(when), EARLIEST, LATEST) * MICROSECONDS + microseconds_of(when);
}

}  // namespace

// Takes note of the record. Whether it is a frame to be handed out.
bool TraceFrames::note_record() {
    if (record_.marker == TIME_STAMP_MARKER) {
        clock_.note(record_.octets());
    } else if (record_.marker == DEBUG_MARKER) {
        ++debug_records_;
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
