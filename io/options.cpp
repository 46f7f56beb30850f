#include "io/options.h"

#include <getopt.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "io/diagnostics.h"

namespace {

constexpr int VERSION_OPTION = 256;  // no letter

// Shows a text on standard output, and ends the run.
[[noreturn]] void answer(const std::string& text) {
    const bool shown = std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
    std::exit(shown ? EXIT_SUCCESS : EXIT_FAILURE);
}

std::string option_letter(int letter) { return std::string("option -") + static_cast<char>(letter); }

// What is wrong with the option that getopt_long() has just refused: a short one has a letter in `optopt`.
std::string wrong_option(int result, char** argv) {
    if (result == ':') {
        return option_letter(optopt) + " lacks its value";
    }
    const bool is_letter = optopt > 0 && optopt < VERSION_OPTION;
    return "unknown " + (is_letter ? option_letter(optopt) : std::string("option ") + argv[optind - 1]);
}

}  // namespace

std::vector<const char*> read_options(int argc, char** argv, const Usage& usage,
                                      const std::function<std::string(char letter, const char* value)>& take) {
    constexpr std::array<option, 3> LONG_OPTIONS{{
        {"help", no_argument, nullptr, 'h'},
        {"version", no_argument, nullptr, VERSION_OPTION},
        {nullptr, 0, nullptr, 0},
    }};
    const std::string letters = std::string(":h") + usage.letters;
    opterr = 0;
    for (;;) {
        const int result = getopt_long(argc, argv, letters.c_str(), LONG_OPTIONS.data(), nullptr);
        if (result == -1) {
            return {argv + optind, argv + argc};
        }
        if (result == 'h') {
            answer(std::string("usage: ") + usage.line + "\n" + usage.help);
        }
        if (result == VERSION_OPTION) {
            answer(std::string(program_invocation_short_name) + " " QUANDRIX_VERSION "\n");
        }
        const std::string wrong =
            result == '?' || result == ':' ? wrong_option(result, argv) : take(static_cast<char>(result), optarg);
        if (!wrong.empty()) {
            fail_with_usage(usage, wrong);
        }
    }
}

void fail_with_usage(const Usage& usage, std::string_view why) {
    say(why);
    say(std::string("usage: ") + usage.line);
    std::exit(usage.wrong_status);
}
