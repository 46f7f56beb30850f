#pragma once

#include "io/input_stream.h"
#include "io/output_stream.h"

// The files that the command line of a companion program names. The name "-" means standard input or output.

// Opens a file for reading. A FIFO blocks until another process opens it for writing. -1 on failure.
int open_operand(const char* name);

// The functions below end the run with a message and exit status 1 when a file cannot be used.

// Opens a file (open_operand) for a stream to read.
void open_source(InputStream& source, const char* name);

// Opens a file for a stream to write into: creates or truncates it (create_output), or takes standard output. It must
// not be the file that is open as `source`, nor the one that standard error goes to.
void create_target(OutputStream& target, const char* name, int source);

// Writes out what the stream still holds, and closes it.
void close_target(OutputStream& target);
