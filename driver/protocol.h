#pragma once

// Reads the two numbers at the head of a trace body: the protocol code, which sets `swit` and `BRItrace` and is named
// on the terminal and in the report, and the tick resolution. A body that ends before both aborts the run.
void read_protocol();
void read_ticks_resolution();
