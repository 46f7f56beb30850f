#pragma once

#include <cstdint>

// Shows a tick count, counted from the first time-stamp record, as local time. The first call writes the start time of
// the trace into the report, without a line end; every later one makes the text `cTimeStamp` that the frames after it
// begin with. Where no local time can be formed, its six values are 0.
void Get_Real_Ticks(std::uint32_t ticks);
