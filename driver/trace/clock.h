#pragma once

#include <cstdint>
#include <span>

#include "driver/trace/format.h"

// Start of the trace, from the header of every trace file; all zero when it cannot be read.
struct TraceHeader {
    std::int32_t time;      // seconds since 1 January 1970 UTC
    std::uint16_t millitm;  // its milliseconds; any 16 bits in a damaged trace
};

extern TraceHeader Timeb;

// Takes the header apart.
TraceHeader trace_header(std::span<const std::uint8_t, TRACE_HEADER_SIZE> bytes);

// A moment of calendar time.
struct Moment {
    std::int64_t seconds;       // since 1 January 1970 UTC
    std::int64_t milliseconds;  // 0..999 in ordinary traces; a negative resolution or a damaged header gives others
};

// The moment of a tick count, counted from the first time-stamp record, by `Timeb` and `Ticks_resolution`. Defined for
// every value of the three.
Moment moment_of(std::uint32_t ticks);
