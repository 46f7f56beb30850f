#pragma once

#include <cstdint>

// Start of the trace, from the header of every trace file; all zero when it cannot be read.
struct TraceHeader {
    std::int32_t time;      // seconds since 1 January 1970 UTC
    std::uint16_t millitm;  // its milliseconds; any 16 bits in a damaged trace
};

extern TraceHeader Timeb;

// Reads the header of an open trace into `Timeb`, wherever the trace is read just now; bytes that it does not have are
// zero, and so is all of a file that cannot be positioned. False when it cannot be read.
[[nodiscard]] bool read_header(int trace);

// A moment of calendar time.
struct Moment {
    std::int64_t seconds;       // since 1 January 1970 UTC
    std::int64_t milliseconds;  // 0..999 in ordinary traces; a negative resolution or a damaged header gives others
};

// The moment of a tick count, counted from the first time-stamp record, by `Timeb` and `Ticks_resolution`. Defined for
// every value of the three.
Moment moment_of(std::uint32_t ticks);
