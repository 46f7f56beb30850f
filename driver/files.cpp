#include "driver/files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "driver/command_line.h"
#include "driver/trace/clock.h"
#include "driver/trace/format.h"
#include "driver/trace/trace_stream.h"
#include "report/file_access.h"
#include "report/output_file.h"
#include "report/run_end.h"
#include "report/state.h"

namespace {

// The report, once it is created: a descriptor, or why there is none.
int report = -1;

[[noreturn]] void fail_opening(const char* name) {
    std::printf("Failed opening file %s\n", name);
    end_run(1);
}

bool is_folder(const char* name) {
    struct stat status {};
    return ::stat(name, &status) == 0 && S_ISDIR(status.st_mode);
}

void open_report() {
    const char* name = Parameter.Destination->c_str();
    if (report == -1) {
        report = create_output(name, ifp.descriptor());
    }
    if (report < 0) {
        std::printf("ERROR:Fail to open %s file.\n", name);
        std::fputs(
            "Info:The destination file may exist on your system and ready only\n"
            "Suggestion:\nChange the permission. OR Delete the file to re-use same name. OR Use different "
            "destination file name.\n",
            stdout);
        end_run(1);
    }
    ofp.attach(report, name);
}

}  // namespace

void open_trace() { static_cast<void>(ifp.open(Parameter.Source)); }

void default_destination() {
    Parameter.Destination = std::string(Parameter.Source) + ".res";
    const char* name = Parameter.Destination->c_str();
    report = create_output(name, ifp.descriptor());
    if (report == -1) {
        fail_opening(name);
    }
}

void read_trace_header() {
    if (ifp.descriptor() >= 0) {
        if (!read_header(ifp.descriptor())) {
            std::printf("Failed reading file %s\n", Parameter.Source);
            end_run(1);
        }
    } else if (!is_folder(Parameter.Source) && !is_fifo(Parameter.Source)) {
        std::printf("Failed opening File %s \n", Parameter.Source);
    }
}

void open_files(const char* when_seek_fails) {
    const bool fifo = ifp.descriptor() < 0 && is_fifo(Parameter.Source);
    if (ifp.descriptor() < 0 && !fifo) {
        fail_opening(Parameter.Source);
    }
    open_report();
    if (fifo || !ifp.seek(TRACE_HEADER_SIZE)) {
        std::fputs(when_seek_fails, stdout);
        end_run(1);
    }
}
