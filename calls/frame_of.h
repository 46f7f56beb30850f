#pragma once

#include "calls/read_message.h"
#include "calls/trace_walk.h"

inline bool is_frame(const FoundRecord& found) {
    return found.record.marker == RECEIVE_MARKER || found.record.marker == TRANSMIT_MARKER;
}

// A record of the walk as a frame; its octets stand as long as the record.
inline Frame frame_of(const FoundRecord& found) {
    const bool basic_rate = BRItrace != 0;
    return {.variant = swit,
            .transmitted = found.record.marker == TRANSMIT_MARKER,
            .line = basic_rate ? std::optional(static_cast<std::uint8_t>(found.record.line)) : std::nullopt,
            .octets = found.record.octets(),
            .elapsed = found.elapsed,
            .at = found.at};
}
