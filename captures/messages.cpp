#include "captures/messages.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <system_error>

#include "report/state.h"

void say(std::string_view text) {
    static_cast<void>(ofp.flush());
    const std::string line = std::string(PROGRAM_NAME) + ": " + std::string(text) + "\n";
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
