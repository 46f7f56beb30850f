#pragma once

// The files that the command line names. Each function ends the run with its message and status 1 when a file cannot
// be used.

// Forms the report's default name, and creates the file at once, empty unless it is the trace itself.
void default_destination();

// Reads the trace header into `Timeb`. A trace that cannot be opened is said on the terminal, and the run goes on;
// bytes that the file does not have are zero.
void read_trace_header();

// Opens the trace and the report, and goes to the body of the trace.
void open_files(const char* when_seek_fails);
