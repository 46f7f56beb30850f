#include "driver/temporary_file.h"

#include <cerrno>
#include <cstdio>

#include "io/file_access.h"
#include "io/output_file.h"
#include "io/output_stream.h"
#include "report/state.h"
#include "trace/hex_text.h"
#include "trace/trace_reader.h"

namespace {

constexpr const char* NAME = "pritemp.log";

OutputStream ffptemp;

// In a folder that others can write to, it could be a link to any other file, which must not be overwritten.
bool may_be_overwritten(int descriptor) { return has_one_name(descriptor) && !same_file(descriptor, ofp.descriptor()); }

// Creates the temporary file, for writing and reading; for writing alone if reading is not permitted, and then reading
// it back fails later. Below 0 on failure.
int create_temporary_file() {
    const int descriptor = create_output(NAME, ifp.descriptor(), O_RDWR | O_NOFOLLOW, may_be_overwritten);
    return descriptor != -1 || errno != EACCES
               ? descriptor
               : create_output(NAME, ifp.descriptor(), O_WRONLY | O_NOFOLLOW, may_be_overwritten);
}

}  // namespace

bool Convert2Hex() {
    const int descriptor = create_temporary_file();
    if (descriptor < 0) {
        std::fputs(
            "ERROR:Fail to open temporary file.\n"
            "Suggestion:Delete temporary file(\"pritemp.log\") from your system, if it exist and try again\n",
            stdout);
        return false;
    }
    ffptemp.attach(descriptor, NAME);
    write_hex_text(ifp, ffptemp);
    if (!ffptemp.flush()) {
        std::fputs("Failed writing file pritemp.log\n", stdout);
        return false;
    }
    if (!ifp.go_on_in(descriptor, NAME, ffptemp.written())) {
        std::fputs("Failed opening pritemp.log\n", stdout);
        return false;
    }
    return true;
}
