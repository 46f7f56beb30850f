#pragma once

// Ends the run, the only way out once the report is open: writes it out, closes it, and exits with the status. A trace
// that could not be read, or a report that could not be written whole, is said on the terminal and makes the status 1.
// Each program that links the trace reader brings its own.
[[noreturn]] void end_run(int status);
