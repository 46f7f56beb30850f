#include "driver/start.h"

#include <sys/stat.h>

#include <cstdio>
#include <optional>
#include <string>

#include "driver/temporary_file.h"
#include "io/file_access.h"
#include "io/output_file.h"
#include "report/state.h"
#include "trace/clock.h"
#include "trace/format.h"
#include "trace/trace_reader.h"

namespace {

bool fail_opening(const char* name) {
    std::printf("Failed opening file %s\n", name);
    return false;
}

bool is_folder(const char* name) {
    struct stat status {};
    return ::stat(name, &status) == 0 && S_ISDIR(status.st_mode);
}

// Reads the header into `Timeb`. If the trace could not be opened, prints a message, and the run goes on.
bool read_trace_header(const char* source) {
    if (ifp.descriptor() >= 0) {
        if (!read_header(ifp.descriptor())) {
            std::printf("Failed reading file %s\n", source);
            return false;
        }
    } else if (!is_folder(source) && !is_fifo(source)) {
        std::printf("Failed opening File %s \n", source);
    }
    return true;
}

// Takes what create_output() returned for that name as the report.
bool use_report(int report, const char* name) {
    if (report < 0) {
        std::printf("ERROR:Fail to open %s file.\n", name);
        std::fputs(
            "Info:The destination file may exist on your system and ready only\n"
            "Suggestion:\nChange the permission. OR Delete the file to re-use same name. OR Use different "
            "destination file name.\n",
            stdout);
        return false;
    }
    ofp.attach(report, name);
    return true;
}

bool seek_first_record(const char* when_it_fails) {
    if (ifp.descriptor() >= 0 && ifp.seek(TRACE_HEADER_SIZE)) {
        return true;
    }
    std::fputs(when_it_fails, stdout);
    return false;
}

bool make_hex_text() {
    const bool converted = Convert2Hex();
    if (converted) {
        std::fputs("BINARY TRACE \n", stdout);
    }
    return converted;
}

}  // namespace

bool open_files(CommandLine& Parameter) {
    const char* const source = Parameter.Source;
    const bool opened = ifp.open(source);  // the message that it cannot be comes after the banner

    std::optional<int> report;
    if (!Parameter.Destination) {
        Parameter.Destination = std::string(source) + ".res";
        report = create_output(Parameter.Destination->c_str(), ifp.descriptor());
        if (report == -1) {
            return fail_opening(Parameter.Destination->c_str());
        }
    }

    if (!read_trace_header(source)) {
        return false;
    }
    velmarix_header();
    if (!opened && !is_fifo(source)) {
        return fail_opening(source);
    }

    const char* const name = Parameter.Destination->c_str();
    if (!use_report(report ? *report : create_output(name, ifp.descriptor()), name)) {
        return false;
    }
    if (Parameter.Option != nullptr) {
        if (!seek_first_record("Seek Failed for Source File 1030\n")) {
            return false;
        }
        std::fputs("KORVEL TRACE\n", stdout);
        return true;
    }
    return seek_first_record("Seek Failed 999\n") && make_hex_text();
}
