// quandrix-export: the frames of a trace as a capture: pcapng, of DASS2 and DPNSS EyeSDN.

#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "captures/eyesdn_writer.h"
#include "captures/pcapng_writer.h"
#include "captures/trace_frames.h"
#include "io/diagnostics.h"
#include "io/file_access.h"
#include "io/operands.h"
#include "io/options.h"
#include "report/lines.h"
#include "trace/trace_start.h"

namespace {

constexpr Usage USAGE{
    .line = "quandrix-export [-d] [-l LINE] TRACE CAPTURE",
    .help =
        "Makes a capture of the frames in a trace: pcapng, of DASS2 and DPNSS EyeSDN.\n"
        "For TRACE and CAPTURE, - is standard input and output.\n"
        "  -d           the trace is hex text\n"
        "  -l LINE      only the frames of this line, 0 to 255\n"
        "  -h, --help   show this text\n"
        "  --version    show the version\n",
    .letters = "dl:",
    .wrong_status = EXIT_FAILURE,
};

struct CommandLine {
    bool hex_trace = false;
    std::optional<std::uint8_t> line;  // the only one wanted
    const char* trace = nullptr;
    const char* capture = nullptr;
};

OutputStream capture;

CommandLine read_command_line(int argc, char** argv) {
    CommandLine command;
    const auto operands = read_options(argc, argv, USAGE, [&](char letter, const char* value) -> std::string {
        if (letter == 'd') {
            command.hex_trace = true;
            return {};
        }
        command.line = octet_number(value);
        return command.line ? "" : std::string("no LINE of 0 to 255: ") + value;
    });
    expect_operands(operands, {"TRACE", "CAPTURE"}, USAGE);
    command.trace = operands[0];
    command.capture = operands[1];
    return command;
}

// Opens the trace, and reads it up to its first record.
void open_trace(const CommandLine& command) {
    const int trace = open_operand(command.trace);
    if (trace < 0) {
        fail_with_reason(std::string("cannot open ") + command.trace);
    }
    if (start_trace(trace, command.trace, command.hex_trace) == nullptr) {
        fail_with_reason(std::string("cannot read ") + command.trace);
    }
}

std::unique_ptr<CaptureWriter> writer_for(Variant variant) {
    if (is_dpnss(variant)) {
        return std::make_unique<EyesdnWriter>(capture);
    }
    return std::make_unique<PcapngWriter>(capture);
}

// Writes the capture. False when the trace ends early.
bool export_trace(const CommandLine& command, TraceFrames& frames) {
    try {
        open_trace(command);
        create_target(capture, command.capture, ifp.descriptor());
        const auto writer = writer_for(swit);
        for (Frame frame; !capture.lost() && frames.next(frame);) {
            writer->write(frame);
        }
        return true;
    } catch (const RunAborted&) {
        text("\n");
        return false;
    }
}

void tell_counts(const CommandLine& command, const TraceFrames& frames) {
    const std::string other_lines = command.line ? std::to_string(frames.of_other_lines()) + " of other lines, " : "";
    say(std::to_string(frames.frames()) + " frames; left out: " + other_lines + std::to_string(frames.debug_records()) +
        " debug records, " + std::to_string(frames.empty_frames()) + " frames of no octets");
}

}  // namespace

int main(int argc, char** argv) {
    prepare_streams();
    const CommandLine command = read_command_line(argc, argv);
    ofp.attach(STDERR_FILENO, "standard error");  // the words of the report about corrupt data
    TraceFrames frames(trace_reader, command.line);
    bool whole = export_trace(command, frames);
    static_cast<void>(ofp.flush());
    if (ifp.failed() != nullptr) {
        say(std::string("could not read all of ") + ifp.failed());
        whole = false;
    }
    close_target(capture);
    tell_counts(command, frames);
    return whole ? EXIT_SUCCESS : EXIT_FAILURE;
}
