// quandrix-export: the frames of a trace as a capture, a pcap file or, of DASS2 and DPNSS, an EyeSDN file.

#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "captures/eyesdn_writer.h"
#include "captures/pcap_writer.h"
#include "captures/trace_frames.h"
#include "io/diagnostics.h"
#include "io/file_access.h"
#include "io/operands.h"
#include "report/lines.h"
#include "trace/trace_start.h"

namespace {

struct CommandLine {
    bool hex_trace = false;
    const char* trace = nullptr;
    const char* capture = nullptr;
};

OutputStream capture;

CommandLine read_command_line(int argc, char** argv) {
    CommandLine command;
    opterr = 0;
    for (int option = getopt(argc, argv, "d"); option != -1; option = getopt(argc, argv, "d")) {
        command.hex_trace = true;
        if (option != 'd') {
            fail("usage: quandrix-export [-d] TRACE CAPTURE");
        }
    }
    if (argc - optind != 2) {
        fail("usage: quandrix-export [-d] TRACE CAPTURE");
    }
    command.trace = argv[optind];
    command.capture = argv[optind + 1];
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
    return std::make_unique<PcapWriter>(capture);
}

// Writes the frames, and counts those that could be read. False when the trace ends early.
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

}  // namespace

int main(int argc, char** argv) {
    prepare_streams();
    const CommandLine command = read_command_line(argc, argv);
    ofp.attach(STDERR_FILENO, "standard error");  // the words of the report about corrupt data
    TraceFrames frames(trace_reader);
    bool whole = export_trace(command, frames);
    static_cast<void>(ofp.flush());
    if (ifp.failed() != nullptr) {
        say(std::string("could not read all of ") + ifp.failed());
        whole = false;
    }
    close_target(capture);
    say(std::to_string(frames.frames()) + " frames; left out: " + std::to_string(frames.debug_records()) +
        " debug records, " + std::to_string(frames.empty_frames()) + " frames of no octets");
    return whole ? EXIT_SUCCESS : EXIT_FAILURE;
}
