#pragma once

#include "driver/trace/trace_stream.h"
#include "report/output_stream.h"

// The files that the command line names, "-" for standard input or output. Each function ends the run with a message
// and status 1 when a file cannot be used.

// Opens a file for reading, and waits for a pipe's writer.
void open_source(TraceStream& source, const char* name);

// Creates a file, or empties it (create_output), or takes standard output; the stream is to write into it. It must not
// be the file open as `source`.
void create_target(OutputStream& target, const char* name, int source);

// Writes out what the stream still holds, and closes it.
void close_target(OutputStream& target);
