#pragma once

#include <string_view>

// Messages of a companion program on standard error. Each is one line that begins with the program's name.

void say(std::string_view text);

// Prints the text and exits with status 1.
[[noreturn]] void fail(std::string_view text);

// Prints the text and the reason why the last system call failed (errno), and exits with status 1.
[[noreturn]] void fail_with_reason(std::string_view text);
