// quandrix-page: the calls of a trace as one HTML file, to look at in a browser.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "calls/call_option.h"
#include "io/file_access.h"
#include "io/options.h"
#include "page/page_maker.h"

namespace {

constexpr Usage USAGE{
    .line = "quandrix-page [-d] [-c NO]... TRACE [PAGE]",
    .help =
        "Writes the calls of a trace as one HTML file, to look at in a browser. TRACE is a binary trace;\n"
        "PAGE is TRACE.html when not given. - is standard input, or standard output.\n"
        "  -d         the trace is hex text\n"
        "  -c NO      only this call, by its number in the list of quandrix-calls\n"
        "  -h, --help     show this text\n"
        "  --version      show the version\n",
    .letters = "dc:",
    .wrong_status = 2,
};

struct CommandLine {
    bool hex_trace = false;
    std::vector<std::uint32_t> calls;  // those wanted; none: all
    std::string trace;
    std::string page;
};

CommandLine read_command_line(int argc, char** argv) {
    CommandLine command;
    const auto operands = read_options(argc, argv, USAGE, [&](char letter, const char* value) -> std::string {
        if (letter == 'c') {
            return add_call_number(value, command.calls);
        }
        command.hex_trace = true;
        return {};
    });
    if (operands.empty() || operands.size() > 2) {
        fail_with_usage(USAGE, operands.empty() ? "no TRACE" : "more than TRACE and PAGE");
    }
    command.trace = operands.front();
    command.page = command.trace == "-" ? "-" : command.trace + ".html";
    if (operands.size() == 2) {
        command.page = operands.back();
    }
    return command;
}

}  // namespace

int main(int argc, char** argv) {
    prepare_streams();
    const CommandLine command = read_command_line(argc, argv);
    PageMaker maker(command.trace, command.hex_trace, command.calls);
    maker.read_trace();
    maker.write(command.page);
    return maker.tell_damage() ? EXIT_SUCCESS : EXIT_FAILURE;
}
