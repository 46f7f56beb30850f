#include "driver/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <string>

#include "driver/command_line.h"
#include "driver/trace/clock.h"
#include "driver/trace/trace_stream.h"
#include "report/file_access.h"
#include "report/run_end.h"
#include "report/state.h"

namespace {

[[noreturn]] void fail_opening(const char* name) {
    std::printf("Failed opening file %s\n", name);
    end_run(1);
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

}  // namespace

void default_destination() {
    Parameter.Destination = std::string(Parameter.Source) + ".res";
    const char* name = Parameter.Destination->c_str();
    const int descriptor = open_for_writing(name);
    if (descriptor < 0 || !(is_file(descriptor, Parameter.Source) || empty_file(descriptor))) {
        fail_opening(name);
    }
    ::close(descriptor);
}

void read_trace_header() {
    const int descriptor = ::open(Parameter.Source, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        std::printf("Failed opening File %s \n", Parameter.Source);
        return;
    }
    std::array<std::uint8_t, TRACE_HEADER_SIZE> header{};
    // At an offset, so that nothing is taken out of a pipe, which the run will refuse.
    if (::pread(descriptor, header.data(), header.size(), 0) > 0) {
        Timeb = trace_header(header);
    }
    ::close(descriptor);
}

void open_files(const char* when_seek_fails) {
    if (!ifp.open(Parameter.Source)) {
        fail_opening(Parameter.Source);
    }
    open_report();
    if (!ifp.seek(TRACE_HEADER_SIZE)) {
        std::fputs(when_seek_fails, stdout);
        end_run(1);
    }
}
