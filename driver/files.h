#pragma once

// The files that the command line names. Each function ends the run with its message and status 1 when a file cannot
// be used.

// Opens the trace, if that can be; open_files() tells when it is not.
void open_trace();

// Forms the report's default name, and creates the file at once; it stays as it was when it is the trace itself.
void default_destination();

// Reads the trace header into `Timeb`. A trace that could not be opened is said on the terminal, and the run goes on.
void read_trace_header();

// Makes sure of the trace, opens the report, and goes to the body of the trace.
void open_files(const char* when_seek_fails);
