#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "calls/message.h"
#include "report/state.h"

// A record that holds a frame, and what is known of it beside its octets.
struct Frame {
    Variant variant = NO_VARIANT;
    bool transmitted = false;
    std::optional<std::uint8_t> line;      // basic rate
    std::span<const std::uint8_t> octets;  // from the first address octet on
    std::optional<std::int64_t> elapsed;   // milliseconds from the first time-stamp record to the last one before
    std::uint64_t at = 0;                  // the report's line where the frame begins; 0: after its end
};

// What the frame says. Any octets will do, even none.
Message read_message(const Frame& frame);
