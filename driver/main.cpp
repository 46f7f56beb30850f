#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <string>

#include "driver/binary_trace.h"
#include "driver/command_line.h"
#include "driver/files.h"
#include "driver/main_loop.h"
#include "driver/protocol.h"
#include "driver/time_stamp.h"
#include "driver/trace_reader.h"
#include "driver/trace_stream.h"
#include "report/run_end.h"
#include "report/state.h"

namespace {

constexpr long BODY_OFFSET = 10;  // behind the trace header

[[noreturn]] void fail_opening(const char* name) {
    std::printf("Failed opening file %s\n", name);
    end_run(1);
}

// Forms the report's default name, and creates the file at once, empty unless it is the trace itself.
void default_destination() {
    Parameter.Destination = std::string(Parameter.Source) + ".res";
    const char* name = Parameter.Destination->c_str();
    const int descriptor = open_for_writing(name);
    if (descriptor < 0 || !(is_file(descriptor, Parameter.Source) || empty_file(descriptor))) {
        fail_opening(name);
    }
    ::close(descriptor);
}

// Reads the trace header: 4 bytes seconds, 2 bytes milliseconds, 4 bytes not used; little-endian. Bytes that the file
// does not have are zero.
void read_trace_header() {
    const int descriptor = ::open(Parameter.Source, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        std::printf("Failed opening File %s \n", Parameter.Source);
        return;
    }
    std::array<std::uint8_t, BODY_OFFSET> header{};
    // At an offset, so that nothing is taken out of a pipe, which the run will refuse.
    if (::pread(descriptor, header.data(), header.size(), 0) > 0) {
        Timeb.time = static_cast<std::int32_t>(std::uint32_t{header[0]} | std::uint32_t{header[1]} << 8U |
                                               std::uint32_t{header[2]} << 16U | std::uint32_t{header[3]} << 24U);
        Timeb.millitm = static_cast<std::uint16_t>(header[4] | header[5] << 8U);
    }
    ::close(descriptor);
}

void open_report() {
    const char* name = Parameter.Destination->c_str();
    const int descriptor = open_for_writing(name);
    if (descriptor < 0 || is_file(descriptor, Parameter.Source) || !empty_file(descriptor)) {
        std::printf("ERROR:Fail to open %s file.\n", name);
        std::fputs(
            "Info:The destination file may exist on your system and ready only\n"
            "Suggestion:\nChange the permission. OR Delete the file to re-use same name. OR Use different "
            "destination file name.\n",
            stdout);
        end_run(1);
    }
    ofp.attach(descriptor, name);
}

// Opens the trace and the report, and goes to the body of the trace.
void open_files(const char* when_seek_fails) {
    if (!ifp.open(Parameter.Source)) {
        fail_opening(Parameter.Source);
    }
    open_report();
    if (!ifp.seek(BODY_OFFSET)) {
        std::fputs(when_seek_fails, stdout);
        end_run(1);
    }
}

void open_hex_trace() {
    open_files("Seek Failed for Source File 1030\n");
    std::fputs("KORVEL TRACE\n", stdout);
}

void open_binary_trace() {
    open_files("Seek Failed 999\n");
    Convert2Hex();
    if (!ifp.open("pritemp.log")) {
        std::fputs("Failed opening pritemp.log\n", stdout);
        end_run(1);
    }
    std::fputs("BINARY TRACE \n", stdout);
}

// Makes a report that cannot be written on (nobody reads the pipe, the file may not grow) an error like any other.
void ignore_write_signals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

void start_run(int argc, char** argv) {
    ignore_write_signals();
    reset_reader();
    read_command_line(argc, argv);
    if (!Parameter.Destination) {
        default_destination();
    }
    read_trace_header();
    velmarix_header();
    if (Parameter.Option != nullptr) {
        open_hex_trace();
    } else {
        open_binary_trace();
    }
    read_protocol();
    read_ticks_resolution();
}

}  // namespace

int main(int argc, char** argv) {
    start_run(argc, argv);
    decode_records();
    end_run(0);
}
