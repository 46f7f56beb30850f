#pragma once

#include "report/state.h"

// A protocol code and what it stands for.
struct Protocol {
    std::int32_t code;
    Variant variant;
    const char* report_text;  // the two texts differ by a blank
    const char* terminal_text;
};

// Read the two numbers at the head of a trace body: the protocol code, which sets `swit` and `BRItrace`, and the tick
// resolution. Both count whole, above 255 and negative too. A body that ends before them aborts the run.
const Protocol& read_protocol();
void read_ticks_resolution();
