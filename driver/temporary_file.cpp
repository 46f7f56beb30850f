#include "driver/temporary_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "driver/trace/hex_text.h"
#include "driver/trace/trace_stream.h"
#include "report/file_access.h"
#include "report/output_stream.h"
#include "report/run_end.h"
#include "report/state.h"

namespace {

constexpr const char* NAME = "pritemp.log";

OutputStream ffptemp;

// Opens it for writing and for reading back; where it may only be written, the reading will tell.
int open_temporary_file() {
    const int descriptor = open_for_writing(NAME, O_RDWR | O_NOFOLLOW, ifp.descriptor());
    return descriptor >= 0 || errno != EACCES ? descriptor
                                              : open_for_writing(NAME, O_WRONLY | O_NOFOLLOW, ifp.descriptor());
}

// In a folder that others write to it could be a link to any file, which must not be lost.
bool may_be_overwritten(int descriptor) {
    return has_one_name(descriptor) && !same_file(descriptor, ifp.descriptor()) &&
           !same_file(descriptor, ofp.descriptor());
}

// The temporary file, locked and empty; -1 when there can be none.
int create_temporary_file() {
    for (;;) {
        const int descriptor = open_temporary_file();
        if (descriptor < 0 || !may_be_overwritten(descriptor)) {
            return -1;
        }
        if (lock_file(descriptor, NAME)) {
            return empty_file(descriptor) ? descriptor : -1;
        }
        ::close(descriptor);  // it was removed while this run waited
    }
}

}  // namespace

int Convert2Hex() {
    const int descriptor = create_temporary_file();
    if (descriptor < 0) {
        std::fputs(
            "ERROR:Fail to open temporary file.\n"
            "Suggestion:Delete temporary file(\"pritemp.log\") from your system, if it exist and try again\n",
            stdout);
        end_run(1);
    }
    ffptemp.attach(descriptor, NAME);
    write_hex_text(ifp, ffptemp);
    if (!ffptemp.flush()) {
        std::fputs("Failed writing file pritemp.log\n", stdout);
        end_run(1);
    }
    ifp.close();
    return descriptor;
}
