#pragma once

#include "io/input_stream.h"
#include "io/output_stream.h"

// The files that the command line of a companion program names, "-" for standard input or output.

// Opens a file for reading, and waits for a pipe's writer. -1 when that fails.
int open_operand(const char* name);

// The functions below end the run with a message and status 1 when a file cannot be used.

// Has a stream read a file (open_operand).
void open_source(InputStream& source, const char* name);

// Creates a file, or empties it (create_output), or takes standard output; the stream is to write into it. It must not
// be the file open as `source`.
void create_target(OutputStream& target, const char* name, int source);

// Writes out what the stream still holds, and closes it.
void close_target(OutputStream& target);
