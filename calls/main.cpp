// quandrix-calls: the calls of a trace, its messages, or the frames of some calls.

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "calls/call_option.h"
#include "calls/call_table.h"
#include "calls/columns.h"
#include "calls/damage.h"
#include "calls/frame_of.h"
#include "calls/trace_walk.h"
#include "io/diagnostics.h"
#include "io/file_access.h"
#include "io/options.h"

namespace {

constexpr int WRONG_COMMAND_LINE = 2;

constexpr Usage USAGE{
    .line = "quandrix-calls [-d] [-m] [-c NO]... TRACE...",
    .help =
        "Lists the calls of traces. TRACE is a binary trace, or - for standard input.\n"
        "  -d         the traces are hex text\n"
        "  -m         list the messages, not the calls\n"
        "  -c NO      only this call, by its number in the list: the lines of its frames in the report,\n"
        "             with -m its messages\n"
        "  -h, --help     show this text\n"
        "  --version      show the version\n",
    .letters = "dmc:",
    .wrong_status = WRONG_COMMAND_LINE,
};

struct CommandLine {
    bool hex_traces = false;
    bool messages = false;
    std::vector<std::uint32_t> calls;  // those wanted; none: all
    std::vector<const char*> traces;

    [[nodiscard]] bool wants(std::uint32_t call) const { return calls.empty() || std::ranges::count(calls, call) != 0; }
    [[nodiscard]] bool wants_frames() const { return !calls.empty() && !messages; }
};

CommandLine read_command_line(int argc, char** argv) {
    CommandLine command;
    command.traces = read_options(argc, argv, USAGE, [&](char letter, const char* value) -> std::string {
        if (letter == 'c') {
            return add_call_number(value, command.calls);
        }
        command.hex_traces = command.hex_traces || letter == 'd';
        command.messages = command.messages || letter == 'm';
        return {};
    });
    if (command.traces.empty()) {
        fail_with_usage(USAGE, "no TRACE");
    }
    if (!command.calls.empty() && command.traces.size() > 1) {
        fail_with_usage(USAGE, "-c wants one TRACE");
    }
    return command;
}

OutputStream out;

void print_line(std::string_view line) {
    out.write(line);
    out.write("\n");
}

// What is listed of one trace.
class Listing {
 public:
    Listing(const CommandLine& command, const char* trace)
        : command_(command), trace_(trace), walk_(command.wants_frames()) {}

    // Lists the trace. False when it could not be read whole, or lacks a call that is wanted.
    bool list() {
        if (!walk_.open(trace_, command_.hex_traces)) {
            say(trace_ + (": cannot be read: " + std::generic_category().message(errno)));
            return false;
        }
        while (!out.lost() && walk_.next()) {
            take_pass();
        }
        if (command_.calls.empty() && !command_.messages) {
            print_calls();
        }
        return tell_damage(trace_, walk_, damage_) && tell_missing_calls();
    }

 private:
    void take_pass() {
        bool wanted = false;
        for (const FoundRecord& record : walk_.pass().records) {
            if (!is_frame(record)) {
                continue;
            }
            const Message message = read_message(frame_of(record));
            const CallTable::Added added = calls_.add(message);
            damage_.note(message);
            wanted = wanted || (added.no != 0 && command_.wants(added.no));
            if (command_.messages && message.is_message && !added.repeated && command_.wants(added.no)) {
                print_line(message_row(message, added.no, walk_.start(), trace_));
            }
        }
        damage_.note(walk_.pass());
        if (wanted && command_.wants_frames()) {
            out.write(walk_.pass().text);
        }
    }

    void print_calls() {
        for (std::uint32_t no = 1; no <= calls_.size(); ++no) {
            print_line(call_row(calls_.call(no), walk_.start(), trace_));
        }
    }

    bool tell_missing_calls() {
        const auto missing = std::ranges::find_if(command_.calls, [&](std::uint32_t no) { return no > calls_.size(); });
        if (missing != command_.calls.end()) {
            say(trace_ + (": has no call " + std::to_string(*missing)));
        }
        return missing == command_.calls.end();
    }

    const CommandLine& command_;
    const char* const trace_;
    TraceWalk walk_;
    CallTable calls_;
    DamageCount damage_;
};

}  // namespace

int main(int argc, char** argv) {
    prepare_streams();
    std::signal(SIGPIPE, SIG_DFL);  // `| head` ends it without a word
    const CommandLine command = read_command_line(argc, argv);
    out.attach(STDOUT_FILENO, "standard output");
    if (!command.wants_frames()) {
        print_line(command.messages ? MESSAGE_COLUMNS : CALL_COLUMNS);
    }
    bool whole = true;
    for (const char* const trace : command.traces) {
        whole = Listing(command, trace).list() && whole;
    }
    if (!out.flush()) {
        fail("could not write all of standard output");
    }
    return whole ? EXIT_SUCCESS : EXIT_FAILURE;
}
