#pragma once

#include "report/state.h"

// A protocol code and what it stands for.
struct Protocol {
    std::int32_t code;
    Variant variant;
    const char* report_text;  // for some protocols the two texts differ by a blank
    const char* terminal_text;
};

// Read the two numbers that a trace body begins with: the protocol code, which sets `swit` and `BRItrace`, and the tick
// resolution. They are not cut to 8 bits: they may be negative or above 255. If the body ends first, the run is
// aborted.
const Protocol& read_protocol();
void read_ticks_resolution();
