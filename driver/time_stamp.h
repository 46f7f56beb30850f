#pragma once

#include <cstdint>

// Shows a tick count, which counts from the first time-stamp record, as local time. The first call writes the start
// time of the trace into the report, without a line end. Every later call makes `cTimeStamp`, the line that later
// frames begin with. If a moment has no local time, month to second are 0.
void Get_Real_Ticks(std::uint32_t ticks);
