#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "calls/message.h"

enum class Result : std::uint8_t { OPEN, ANSWERED, BUSY, NO_ANSWER, REJECTED, ABANDONED, FAILED };

// How a call ended: by a clearing message of either side, or otherwise.
enum class Cleared : std::uint8_t { OPEN, RECEIVED, TRANSMITTED, RESTART, STATUS, SUSPEND };

// A call as the list shows it. Times and durations are in milliseconds; none: the trace does not tell.
struct Call {
    std::uint32_t no = 0;               // 1, 2, ... in the order of their first messages
    std::optional<std::int64_t> start;  // of the first message, since the first time-stamp record
    std::uint64_t at = 0;               // report line where the frame of the first message begins
    bool by_transmitted = false;  // the side that gave the call reference, or (DASS2, DPNSS) sent the first message
    std::optional<std::uint8_t> line;
    std::string reference;
    std::string from;
    std::string to;
    std::string channel;
    std::optional<std::int64_t> alert;  // from the first message to the first ALERTING
    std::optional<std::int64_t> ring;   // from there to the connect message, or to the clearing
    std::optional<std::int64_t> talk;   // from the connect message to the clearing
    Result result = Result::OPEN;
    Cleared cleared = Cleared::OPEN;
    std::optional<Cause> cause;
    std::uint32_t messages = 0;  // without repeated frames
};
