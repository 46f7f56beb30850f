#include "io/options.h"

#include <getopt.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>

#include "io/diagnostics.h"

namespace {

constexpr int VERSION_OPTION = 256;  // no letter

// Prints a text on standard output, and ends the run.
[[noreturn]] void answer(const std::string& text) {
    const bool shown = std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
    std::exit(shown ? EXIT_SUCCESS : EXIT_FAILURE);
}

std::string option_letter(int letter) { return std::string("option -") + static_cast<char>(letter); }

// What is wrong with the option that getopt_long() has just refused. A short one has its letter in `optopt`; a long one
// has there, when it is given a value and takes none, what stands for it among the long options.
std::string wrong_option(int result, char** argv) {
    if (result == ':') {
        return option_letter(optopt) + " lacks its value";
    }
    const bool is_long = optopt == 0 || optopt == 'h' || optopt == VERSION_OPTION;
    return "unknown " + (is_long ? std::string("option ") + argv[optind - 1] : option_letter(optopt));
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

void expect_operands(const std::vector<const char*>& operands, std::initializer_list<const char*> names,
                     const Usage& usage) {
    if (operands.size() < names.size()) {
        fail_with_usage(usage, std::string("no ") + names.begin()[operands.size()]);
    }
    if (operands.size() > names.size()) {
        fail_with_usage(usage, std::string("one word too many: ") + operands[names.size()]);
    }
}

std::optional<std::uint8_t> octet_number(std::string_view value) {
    std::uint8_t number = 0;
    const char* const end = value.data() + value.size();
    const auto [read_to, error] = std::from_chars(value.data(), end, number);
    return error == std::errc() && read_to == end ? std::optional(number) : std::nullopt;
}
