#include <cstdio>

#include "driver/command_line.h"
#include "driver/files.h"
#include "driver/main_loop.h"
#include "driver/temporary_file.h"
#include "driver/trace/protocol.h"
#include "driver/trace/trace_reader.h"
#include "driver/trace/trace_stream.h"
#include "report/file_access.h"
#include "report/lines.h"
#include "report/run_end.h"
#include "report/state.h"

namespace {

void open_hex_trace() {
    open_files("Seek Failed for Source File 1030\n");
    std::fputs("KORVEL TRACE\n", stdout);
}

void open_binary_trace() {
    open_files("Seek Failed 999\n");
    if (!Convert2Hex()) {
        std::fputs("Failed opening pritemp.log\n", stdout);
        end_run(1);
    }
    std::fputs("BINARY TRACE \n", stdout);
}

// Names the protocol in the report and on the terminal.
void show_protocol(const Protocol& protocol) {
    text(BRItrace != 0 ? "BRI " : "PROTOCOL TYPE                 : PRI ");
    text(protocol.report_text);
    std::printf("ISDN Protocol: %s%s", BRItrace != 0 ? "BRI " : "PRI ", protocol.terminal_text);
}

void start_run(int argc, char** argv) {
    prepare_streams();
    reset_state();
    reset_reader();
    read_command_line(argc, argv);
    open_trace();
    if (!Parameter.Destination) {
        default_destination();
    }
    read_trace_header();
    velmarix_header();
    if (Parameter.Option != nullptr) {
        open_hex_trace();
    } else {
        open_binary_trace();
    }
    show_protocol(read_protocol());
    read_ticks_resolution();
}

}  // namespace

int main(int argc, char** argv) {
    start_run(argc, argv);
    decode_records();
    end_run(0);
}
