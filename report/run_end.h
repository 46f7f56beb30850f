#pragma once

// Ends the run, the only way out once the report is open: writes it out, closes it, and exits with the status. A
// report that could not be written whole is said on the terminal and makes the status 1. A program that uses the trace
// reader without the decoder brings its own.
[[noreturn]] void end_run(int status);
