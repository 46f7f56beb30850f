#include "io/diagnostics.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <system_error>

void say(std::string_view text) {
    const std::string line = std::string(program_invocation_short_name) + ": " + std::string(text) + "\n";
    std::fputs(line.c_str(), stderr);
}

void fail(std::string_view text) {
    say(text);
    std::exit(EXIT_FAILURE);
}

void fail_with_reason(std::string_view text) {
    const std::string reason = std::generic_category().message(errno);
    fail(std::string(text) + ": " + reason);
}
