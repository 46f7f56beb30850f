// For libFuzzer: a trace into the tables of quandrix-calls, one input for each call.
//
// An input is a kind octet and the body of a trace, as in decoder_target.cpp. The walk through the trace opens a file,
// so the trace is written into a file in memory.

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "calls/call_table.h"
#include "calls/columns.h"
#include "calls/damage.h"
#include "calls/frame_of.h"
#include "calls/trace_walk.h"
#include "io/file_access.h"

namespace {

// Writes the trace into a file in memory, and returns the name of that file.
const char* trace_of(std::uint8_t kind, const std::uint8_t* body, std::size_t size) {
    static const int descriptor = ::memfd_create("trace", MFD_CLOEXEC);
    static const std::string name = "/proc/self/fd/" + std::to_string(descriptor);
    std::string trace(TRACE_HEADER_SIZE, static_cast<char>(kind));
    trace.append(body, body + size);
    const bool written = ::ftruncate(descriptor, 0) == 0 && ::lseek(descriptor, 0, SEEK_SET) == 0 &&
                         write_all(descriptor, trace.data(), trace.size());
    if (!written) {
        std::abort();
    }
    return name.c_str();
}

// The number of a call must exist, and every row must have all columns.
void check(const CallTable& calls, const CallTable::Added& added, const std::string& row, std::size_t tabs) {
    if (added.no > calls.size() || static_cast<std::size_t>(std::ranges::count(row, '\t')) != tabs) {
        std::abort();
    }
}

void list(const char* trace, bool hex_trace) {
    TraceWalk walk(true);
    CallTable calls;
    DamageCount damage;
    if (!walk.open(trace, hex_trace)) {
        std::abort();
    }
    while (walk.next()) {
        for (const FoundRecord& record : walk.pass().records) {
            if (is_frame(record)) {
                const Message message = read_message(frame_of(record));
                const CallTable::Added added = calls.add(message);
                damage.note(message);
                check(calls, added, message_row(message, added.no, walk.start(), trace), 13);
            }
        }
        damage.note(walk.pass());
    }
    for (std::uint32_t no = 1; no <= calls.size(); ++no) {
        check(calls, {.no = no}, call_row(calls.call(no), walk.start(), trace), 17);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size != 0) {
        list(trace_of(data[0], data + 1, size - 1), data[0] % 2 == 0);
    }
    return 0;
}
