#include <cstdio>

#include "driver/command_line.h"
#include "driver/main_loop.h"
#include "driver/start.h"
#include "io/file_access.h"
#include "report/state.h"
#include "trace/trace_reader.h"

namespace {

// Writes the name of the protocol into the report and on the terminal.
void show_protocol(const Protocol& protocol) {
    report_protocol(protocol);
    std::printf("ISDN Protocol: %s%s", BRItrace != 0 ? "BRI " : "PRI ", protocol.terminal_text);
}

// Writes the report. False when the run ended early.
bool decode(CommandLine& Parameter) {
    if (!open_files(Parameter)) {
        return false;
    }
    try {
        show_protocol(read_protocol());
        read_ticks_resolution();
        decode_records();
        return true;
    } catch (const RunAborted&) {
        return false;  // the report shows where
    }
}

// Writes out the rest of the report. False when a read of the trace or a write of the report has failed.
bool close_files() {
    const bool read = ifp.failed() == nullptr;
    if (!read) {
        std::printf("Failed reading file %s\n", ifp.failed());
    }
    const bool written = ofp.close();
    if (!written) {
        std::printf("Failed writing file %s\n", ofp.name());
    }
    return read && written;
}

}  // namespace

int main(int argc, char** argv) {
    prepare_streams();
    reset_state();
    trace_reader.reset();
    std::optional<CommandLine> Parameter = read_command_line(argc, argv);
    if (!Parameter) {
        return 1;
    }
    const bool decoded = decode(*Parameter);
    return close_files() && decoded ? 0 : 1;
}
