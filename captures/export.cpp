// quandrix-export: the frames of a trace as a capture, a pcap file or, of DASS2 and DPNSS, an EyeSDN file.

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "captures/eyesdn_writer.h"
#include "captures/files.h"
#include "captures/messages.h"
#include "captures/pcap_writer.h"
#include "captures/trace_frames.h"
#include "driver/trace/clock.h"
#include "driver/trace/hex_text.h"
#include "driver/trace/protocol.h"
#include "driver/trace/trace_stream.h"
#include "report/file_access.h"
#include "report/lines.h"
#include "report/run_end.h"

const char* const PROGRAM_NAME = "quandrix-export";

namespace {

struct CommandLine {
    bool hex_trace = false;
    const char* trace = nullptr;
    const char* capture = nullptr;
};

OutputStream capture;
TraceFrames frames;

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

// A file that goes when it is closed: its name is taken away at once.
int create_temporary_file() {
    const char* const wanted = std::getenv("TMPDIR");
    const std::string folder = wanted != nullptr && *wanted != '\0' ? wanted : "/tmp";
    std::string name = folder + "/quandrix-XXXXXX";
    const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
    if (descriptor < 0) {
        fail_with_reason("cannot create a temporary file in " + folder);
    }
    ::unlink(name.c_str());
    return descriptor;
}

// Turns the rest of the binary trace `ifp` into hex text in a temporary file, and opens that instead.
void read_as_hex_text() {
    static OutputStream hex_text;
    const int descriptor = create_temporary_file();
    hex_text.attach(descriptor, "the temporary file");
    write_hex_text(ifp, hex_text);
    if (!hex_text.flush() || !ifp.open(descriptor, hex_text.name(), hex_text.written())) {
        fail("could not write all of the temporary file");
    }
}

// Opens the trace and reads it up to its first record. Gives a descriptor of it that stays open.
int open_trace(const char* name, bool hex_trace) {
    if (!ifp.open(name) || !ifp.seek(TRACE_HEADER_SIZE) || !read_header(ifp.descriptor())) {
        fail(std::string("cannot read ") + name + ": it must be a file, and one that may be read");
    }
    const int trace = ::dup(ifp.descriptor());
    if (!hex_trace) {
        read_as_hex_text();
    }
    read_protocol();
    read_ticks_resolution();
    return trace;
}

void write_frames() {
    const bool dpnss = variant_is(PRI_DASS2, PRI_DPNSS_A, PRI_DPNSS_B);
    dpnss ? write_eyesdn_header(capture) : write_pcap_header(capture);
    const auto write_frame = dpnss ? write_eyesdn_frame : write_pcap_frame;
    for (Frame frame; !capture.lost() && frames.next(frame);) {
        write_frame(frame, capture);
    }
}

// Closes the capture, tells what is in it, and exits.
[[noreturn]] void finish(int status) {
    if (ifp.failed() != nullptr) {
        say(std::string("could not read all of ") + ifp.failed());
        status = EXIT_FAILURE;
    }
    close_target(capture);
    say(std::to_string(frames.frames()) + " frames; left out: " + std::to_string(frames.debug_records()) +
        " debug records, " + std::to_string(frames.empty_frames()) + " frames of no octets");
    std::exit(status);
}

}  // namespace

// The reader's way out when the trace ends too early; it has said so in the report, which is standard error here.
void end_run(int status) {
    text("\n");
    finish(status);
}

int main(int argc, char** argv) {
    prepare_streams();
    const CommandLine command = read_command_line(argc, argv);
    reset_state();
    reset_reader();
    ofp.attach(STDERR_FILENO, "standard error");
    const int trace = open_trace(command.trace, command.hex_trace);
    create_target(capture, command.capture, trace);
    write_frames();
    finish(EXIT_SUCCESS);
}
