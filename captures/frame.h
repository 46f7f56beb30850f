#pragma once

#include <cstdint>
#include <span>

// A frame on its way between a trace and a capture.
struct Frame {
    std::int64_t when = 0;                   // microseconds since 1 January 1970 UTC
    bool timed = true;                       // false: the time is not known, and `when` is 0
    bool transmitted = false;                // sent by the user side, from which a trace is seen
    std::uint8_t line = 0;                   // number of the line; 0 where only one is recorded
    std::span<const std::uint8_t> octets{};  // 1..255 of them: the address first, no check sequence
};

constexpr std::int64_t MICROSECONDS = 1'000'000;  // of a second

// The two parts of a time. The microseconds are 0..999999, before 1970 too.
constexpr std::int64_t seconds_of(std::int64_t when) { return when / MICROSECONDS - (when % MICROSECONDS < 0 ? 1 : 0); }
constexpr std::uint32_t microseconds_of(std::int64_t when) {
    return static_cast<std::uint32_t>(when - seconds_of(when) * MICROSECONDS);
}
