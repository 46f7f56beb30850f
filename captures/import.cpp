// quandrix-import: the frames of a capture (pcap, pcapng, EyeSDN) or of a text as a trace.

#include <cstdlib>
#include <optional>
#include <string>

#include "captures/conversion.h"
#include "captures/open_capture.h"
#include "captures/protocol_names.h"
#include "captures/trace_writer.h"
#include "io/diagnostics.h"
#include "io/file_access.h"
#include "io/operands.h"
#include "io/options.h"

namespace {

constexpr Usage USAGE{
    .line = "quandrix-import [-d] [-l LINE] -p PROTOCOL CAPTURE TRACE",
    .help =
        "Makes a trace of the ISDN frames in a capture (pcap, pcapng, EyeSDN) or a text.\n"
        "For CAPTURE and TRACE, - is standard input and output.\n"
        "  -p PROTOCOL  of the line: a code of 0 to 255, or one of\n"
        "               4ess 5ess dms100 vn3 ntt 1tr6 tph1856 net5 dass2 dpnss-a dpnss-b ni2\n"
        "               bri-5ess bri-dms100 bri-ntt bri-net3 bri-ni1 bri-ni2\n"
        "  -l LINE      only the frames of this line, 0 to 255\n"
        "  -d           write hex text, not a binary trace\n"
        "  -h, --help   show this text\n"
        "  --version    show the version\n",
    .letters = "dl:p:",
    .wrong_status = EXIT_FAILURE,
};

struct CommandLine {
    bool hex_trace = false;
    std::optional<std::uint8_t> protocol;
    std::optional<std::uint8_t> line;  // the only one wanted
    const char* capture = nullptr;
    const char* trace = nullptr;
};

// Takes an option. What is wrong with it.
std::string take_option(CommandLine& command, char letter, const char* value) {
    if (letter == 'd') {
        command.hex_trace = true;
    } else if (letter == 'l') {
        command.line = octet_number(value);
        return command.line ? "" : std::string("no LINE of 0 to 255: ") + value;
    } else {
        command.protocol = protocol_code(value);
        return command.protocol ? "" : std::string("no PROTOCOL (--help lists them): ") + value;
    }
    return {};
}

CommandLine read_command_line(int argc, char** argv) {
    CommandLine command;
    const auto operands = read_options(
        argc, argv, USAGE, [&](char letter, const char* value) { return take_option(command, letter, value); });
    if (!command.protocol) {
        fail_with_usage(USAGE, "no -p PROTOCOL");
    }
    expect_operands(operands, {"CAPTURE", "TRACE"}, USAGE);
    command.capture = operands[0];
    command.trace = operands[1];
    return command;
}

InputStream source;
OutputStream trace;

}  // namespace

int main(int argc, char** argv) {
    prepare_streams();
    const CommandLine command = read_command_line(argc, argv);
    const auto reader = open_capture(source, command.capture);
    create_target(trace, command.trace, source.descriptor());
    TraceWriter writer(trace, *command.protocol, command.hex_trace);
    Conversion conversion(*reader, writer, command.line);
    while (!trace.lost() && conversion.next()) {
    }
    close_target(trace);
    const bool all_as_it_was = conversion.tell_result();
    if (source.failed() != nullptr) {
        fail("could not read all of " + std::string(command.capture));
    }
    return all_as_it_was ? EXIT_SUCCESS : EXIT_FAILURE;
}
