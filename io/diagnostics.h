#pragma once

#include <string_view>

// What a companion program says on standard error, each time a line of its own that begins with the program's name.

void say(std::string_view text);

// Says it, and exits with status 1.
[[noreturn]] void fail(std::string_view text);

// Says it together with the reason why the system refused the last call, and exits with status 1.
[[noreturn]] void fail_with_reason(std::string_view text);
