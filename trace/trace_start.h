#pragma once

#include "trace/protocol.h"
#include "trace/trace_reader.h"

// Begins to read a trace for a program that goes through its records: forgets the trace before, and takes the header,
// the protocol code and the tick resolution. The descriptor, which may be a pipe, is taken over; the name is kept for
// messages. A binary trace is read as hex text, made block by block. Gives the protocol; null when the header cannot be
// read. A trace that ends before its first record aborts the run.
[[nodiscard]] const Protocol* start_trace(int descriptor, const char* name, bool hex_trace,
                                          ReaderObserver* observer = nullptr);
