#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// The command line of a companion program.

struct Usage {
    const char* line;     // "quandrix-export [-d] TRACE CAPTURE"
    const char* help;     // what it does and what its options mean, lines that --help shows after that
    const char* letters;  // its options as getopt() takes them, "dp:"
    int wrong_status;     // exit status when the command line is wrong
};

// Reads the options, before, after and among the operands, and gives the operands; "--" ends the options. For each
// option `take` is called with its letter and its value, if it has one; what it returns is why the value is wrong,
// empty when it is right. -h, --help and --version are answered on standard output and end the run with status 0; an
// option that is wrong ends it with fail_with_usage().
std::vector<const char*> read_options(int argc, char** argv, const Usage& usage,
                                      const std::function<std::string(char letter, const char* value)>& take);

// Says on standard error which word is wrong and the usage line, and exits with `wrong_status`.
[[noreturn]] void fail_with_usage(const Usage& usage, std::string_view why);
