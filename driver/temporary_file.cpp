#include "driver/temporary_file.h"

#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "driver/command_line.h"
#include "driver/trace/hex_text.h"
#include "driver/trace/trace_stream.h"
#include "report/file_access.h"
#include "report/output_stream.h"
#include "report/run_end.h"

namespace {

// Stays open, and with it locked, until the process ends: until then this run reads what it wrote.
OutputStream ffptemp;

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

}  // namespace

void Convert2Hex() {
    const int descriptor = create_temporary_file();
    if (descriptor < 0) {
        std::fputs(
            "ERROR:Fail to open temporary file.\n"
            "Suggestion:Delete temporary file(\"pritemp.log\") from your system, if it exist and try again\n",
            stdout);
        end_run(1);
    }
    ffptemp.attach(descriptor, "pritemp.log");
    write_hex_text(ifp, ffptemp);
    if (!ffptemp.flush()) {
        std::fputs("Failed writing file pritemp.log\n", stdout);
        end_run(1);
    }
    ifp.close();
}
