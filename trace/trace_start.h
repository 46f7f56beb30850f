#pragma once

#include "trace/protocol.h"
#include "trace/trace_reader.h"

// Begins to read a trace, for a program that goes through its records. Forgets the previous trace, and reads the
// header, the protocol code and the tick resolution. Takes over the descriptor, which may be a pipe; the name is kept
// for messages. A binary trace is converted to hex text block by block, as it is read. Returns the protocol, or null
// when the header cannot be read. A trace that ends before its tick resolution aborts the run.
[[nodiscard]] const Protocol* start_trace(int descriptor, const char* name, bool hex_trace,
                                          ReaderObserver* observer = nullptr);
