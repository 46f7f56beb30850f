#pragma once

#include <string_view>

// The program's name, each defines its own.
extern const char* const PROGRAM_NAME;

// Says something on standard error: the program's name and the text, on a line of their own, behind what is still to be
// written of the report.
void say(std::string_view text);

// Says it, and exits with status 1.
[[noreturn]] void fail(std::string_view text);

// Says it, as far as it is known why the system refused the last call, and exits with status 1.
[[noreturn]] void fail_with_reason(std::string_view text);
