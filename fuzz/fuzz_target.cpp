// The whole road of a trace, from its file to the closed report, on one input a call, for libFuzzer.
//
// An input is a kind octet and the body of a trace: protocol code, tick resolution, records. An even kind stands for a
// hex trace, whose body is text; an odd kind for a binary trace, whose octets become text here. The kind also fills the
// trace header, so that traces start at times of all sizes.

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

#include "driver/main_loop.h"
#include "driver/protocol.h"
#include "driver/time_stamp.h"
#include "driver/trace_reader.h"
#include "driver/trace_stream.h"
#include "report/lines.h"
#include "report/run_end.h"
#include "report/state.h"
#include "report/write_all.h"

namespace {

constexpr std::size_t HEADER_SIZE = 10;

struct RunEnd {};

// Ends the process: without its files nothing can be tried.
void require(bool done) {
    if (!done) {
        std::abort();
    }
}

void reset_state() {
    swit = NO_VARIANT;
    BRItrace = 0;
    Ticks_resolution = 0;
    First_Msg = 0;
    cTimeStamp[0] = '\0';
    flag = 0;
    msglen = 0;
    dsl = 0;
    sapi = 0;
    tei = 0;
    bCRflag = 0;
    debug_msg = 0;
    time_stamp_msg = 0;
    value = 0;
    prtcol_discr = 0;
    Lock_shift = 0;
    ielength = 0;
    reset_reader();
}

// White space at its end decides where a trace ends: a binary one gets the line ends that its conversion would write.
std::string trace_file(std::uint8_t kind, std::span<const std::uint8_t> body) {
    std::string file(HEADER_SIZE, static_cast<char>(kind));
    if (kind % 2 == 0) {
        file.append(body.begin(), body.end());
        return file;
    }
    for (std::size_t i = 0; i < body.size(); ++i) {
        file.append(" ").append(hex_pair(body[i]), 2);
        if (i != 0 && i % 26 == 0) {
            file.append("\n");
        }
    }
    return file;
}

// Opens the trace through a file in memory that all calls share, and the report for nobody to read.
void open_files(const std::string& trace) {
    static const int memory = ::memfd_create("trace", MFD_CLOEXEC);
    static const std::string name = "/proc/self/fd/" + std::to_string(memory);
    require(::ftruncate(memory, 0) == 0 && ::lseek(memory, 0, SEEK_SET) == 0);
    require(write_all(memory, trace.data(), trace.size()));
    require(ifp.open(name.c_str()) && ifp.seek(HEADER_SIZE));
    const int report = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    require(report >= 0);
    ofp.attach(report, "report");
}

}  // namespace

// In the place of the program's own: the process goes on with the next input.
void end_run(int /*status*/) { throw RunEnd(); }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::uint8_t kind = data[0];
    reset_state();
    Timeb.time = static_cast<std::int32_t>(kind * 0x01010101U);
    Timeb.millitm = static_cast<std::uint16_t>(kind * 0x0101U);
    open_files(trace_file(kind, {data + 1, size - 1}));
    try {
        read_protocol();
        read_ticks_resolution();
        decode_records();
    } catch (const RunEnd&) {
        // Most inputs end in the middle of a record.
    }
    ifp.close();
    require(ofp.close());
    return 0;
}
