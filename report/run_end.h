#pragma once

// Ends the run, the only way out once a stream is open: closes the trace, writes out and closes the report, and exits
// with the status. A report that could not be written whole is said on the terminal and makes the status 1.
[[noreturn]] void end_run(int status);
