#include "driver/binary_trace.h"

#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "driver/command_line.h"
#include "driver/files.h"
#include "driver/trace_stream.h"
#include "report/lines.h"
#include "report/run_end.h"
#include "report/state.h"
#include "report/write_all.h"

namespace {

// Stays open, and with it locked, until the process ends: until then this run reads what it wrote.
int ffptemp = -1;

// Waits until no other run in this folder has the file locked. On a file system without locks the run goes on.
void wait_for_turn(int descriptor) {
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) {
        return;
    }
    std::fputs("Waiting for another run to finish with pritemp.log\n", stderr);
    while (::flock(descriptor, LOCK_EX) != 0 && errno == EINTR) {
    }
}

bool may_be_overwritten(int descriptor) {
    return is_regular_file(descriptor) && !is_file(descriptor, Parameter.Source) &&
           !is_file(descriptor, Parameter.Destination->c_str());
}

// The temporary file, locked and empty; -1 when there can be none.
int create_temporary_file() {
    for (;;) {
        const int descriptor = open_for_writing("pritemp.log");
        if (descriptor < 0 || !may_be_overwritten(descriptor)) {
            return -1;
        }
        wait_for_turn(descriptor);
        if (is_file(descriptor, "pritemp.log")) {
            return empty_file(descriptor) ? descriptor : -1;
        }
        ::close(descriptor);  // it was removed while this run waited
    }
}

// Text on its way into the temporary file.
class HexText {
 public:
    void append(const char* piece, std::size_t size) {
        if (fill_ + size > buffer_.size()) {
            flush();
        }
        std::memcpy(buffer_.data() + fill_, piece, size);
        fill_ += size;
    }

    void octet(int byte) { append(hex_pair(byte), 2); }

    void flush() {
        if (!write_all(ffptemp, buffer_.data(), fill_)) {
            std::fputs("Failed writing file pritemp.log\n", stdout);
            end_run(1);
        }
        fill_ = 0;
    }

 private:
    std::array<char, 32768> buffer_{};
    std::size_t fill_ = 0;
};

}  // namespace

void Convert2Hex() {
    ffptemp = create_temporary_file();
    if (ffptemp < 0) {
        std::fputs(
            "ERROR:Fail to open temporary file.\n"
            "Suggestion:Delete temporary file(\"pritemp.log\") from your system, if it exist and try again\n",
            stdout);
        end_run(1);
    }
    HexText hex_text;
    int byte = ifp.byte();
    if (byte != TraceStream::END) {
        hex_text.octet(byte);
    }
    int count = 0;  // the byte in front is not counted: the first line holds 27, every later one 26
    while ((byte = ifp.byte()) != TraceStream::END) {
        hex_text.append(" ", 1);
        hex_text.octet(byte);
        if (++count == 26) {
            hex_text.append("\n", 1);
            count = 0;
        }
    }
    hex_text.flush();
    ifp.close();
}
