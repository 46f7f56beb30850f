#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The command line of a companion program.

struct Usage {
    const char* line;     // "quandrix-export [-d] TRACE CAPTURE"
    const char* help;     // what the program does and what its options mean: lines that --help shows after the usage
    const char* letters;  // its options in the form of getopt(), "dp:"
    int wrong_status;     // exit status when the command line is wrong
};

// Reads the options, which may be before, after and between the operands, and returns the operands. "--" ends the
// options.
// - For each option it calls `take`, with the letter and the value (null without one). `take` returns why the value is
//   wrong; an empty text when it is right.
// - For -h, --help and --version it prints the answer on standard output and ends the run with exit status 0.
// - A wrong option ends the run with fail_with_usage().
std::vector<const char*> read_options(int argc, char** argv, const Usage& usage,
                                      const std::function<std::string(char letter, const char* value)>& take);

// Prints on standard error what is wrong and the usage line, and exits with `wrong_status`.
[[noreturn]] void fail_with_usage(const Usage& usage, std::string_view why);

// Ends the run with fail_with_usage() when there are fewer operands than names, or more.
void expect_operands(const std::vector<const char*>& operands, std::initializer_list<const char*> names,
                     const Usage& usage);

// A value that is a decimal number of 0 to 255; none when it is anything else.
std::optional<std::uint8_t> octet_number(std::string_view value);
