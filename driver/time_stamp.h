#pragma once

#include <cstdint>

// Start of the trace, from the 10 bytes at the head of every trace file; all zero when they cannot be read.
struct TraceHeader {
    std::int32_t time;      // seconds since 1 January 1970 UTC
    std::uint16_t millitm;  // its milliseconds; any 16 bits in a damaged trace
};

extern TraceHeader Timeb;

// Turns a tick count, counted from the first time-stamp record, into local time. The first call writes the start
// time of the trace into the report, without a line end; every later one makes the text `cTimeStamp` that the frames
// behind it begin with. Defined for every value of ticks, of `Ticks_resolution` and of the header; where no local
// time can be formed, its six values are 0.
void Get_Real_Ticks(std::uint32_t ticks);
