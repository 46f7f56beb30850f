// quandrix-page: the calls of a trace as one HTML file, looked at in a browser.

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "calls/call_table.h"
#include "calls/columns.h"
#include "calls/damage.h"
#include "calls/frame_of.h"
#include "calls/trace_walk.h"
#include "io/diagnostics.h"
#include "io/file_access.h"
#include "io/operands.h"
#include "io/options.h"
#include "page/frame_data.h"
#include "page/page_writer.h"
#include "trace/trace_reader.h"

namespace {

constexpr std::size_t LARGEST_PAGE = 100'000'000;  // bytes; browsers take long to show more

constexpr Usage USAGE{
    .line = "quandrix-page [-d] [-c NO]... TRACE [PAGE]",
    .help =
        "Writes the calls of a trace as one HTML file. TRACE is a binary trace, PAGE is TRACE.html when\n"
        "not given; - is standard input or output.\n"
        "  -d         the trace is hex text\n"
        "  -c NO      only this call, by its number in the list of quandrix-calls\n"
        "  -h, --help     show this text\n"
        "  --version      show the version\n",
    .letters = "dc:",
    .wrong_status = 2,
};

struct CommandLine {
    bool hex_trace = false;
    std::vector<std::uint32_t> calls;  // those wanted; none: all
    std::string trace;
    std::string page;
};

std::string add_call(std::string_view text, std::vector<std::uint32_t>& calls) {
    std::uint32_t no = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), no);
    if (error != std::errc() || end != text.data() + text.size() || no == 0) {
        return "no number of a call: " + std::string(text);
    }
    calls.push_back(no);
    return {};
}

CommandLine read_command_line(int argc, char** argv) {
    CommandLine command;
    const auto operands = read_options(argc, argv, USAGE, [&](char letter, const char* value) -> std::string {
        if (letter == 'c') {
            return add_call(value, command.calls);
        }
        command.hex_trace = true;
        return {};
    });
    if (operands.empty() || operands.size() > 2) {
        fail_with_usage(USAGE, operands.empty() ? "no TRACE" : "more than TRACE and PAGE");
    }
    command.trace = operands[0];
    command.page = operands.size() == 2 ? operands[1] : command.trace == "-" ? "-" : command.trace + ".html";
    return command;
}

// "1 call", "7 calls"
std::string counted(std::uint64_t number, const std::string& what) {
    return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

OutputStream page;

// Makes a page of a trace.
class PageMaker {
 public:
    explicit PageMaker(const CommandLine& command)
        : command_(command), walk_(true), frames_(command.calls, LARGEST_PAGE) {}

    // Ends the run when the trace cannot be read.
    void read_trace() {
        if (!walk_.open(command_.trace.c_str(), command_.hex_trace)) {
            fail_with_reason("cannot read " + command_.trace);
        }
        while (walk_.next()) {
            take_pass();
        }
    }

    // Ends the run when the page lacks a call that is wanted, would be too large, or cannot be written.
    void write() {
        for (const std::uint32_t no : command_.calls) {
            if (no > calls_.size()) {
                fail(command_.trace + ": has no call " + std::to_string(no));
            }
        }
        const std::vector<std::string> calls = rows();
        std::size_t bytes = frames_.finish();
        for (const std::string& call : calls) {
            bytes += call.size();
        }
        if (bytes > LARGEST_PAGE) {
            fail("a page of more than 100 MB: choose some of its " + counted(calls_.size(), "call") + " with -c");
        }
        create_target(page, command_.page.c_str(), ifp.descriptor());
        write_page(page, {.title = title(), .facts = facts(calls.size()), .calls = calls}, frames_);
        close_target(page);
    }

    // False when the trace was not read to its end.
    bool tell_end() {
        if (walk_.end() == TraceWalk::End::CUT) {
            say(command_.trace + ": the trace ends within a record; calls may be missing");
        } else if (walk_.end() == TraceWalk::End::UNREADABLE) {
            say("could not read all of " + command_.trace);
        }
        return walk_.end() == TraceWalk::End::WHOLE;
    }

 private:
    struct Found {
        Message frame;
        CallTable::Added added;
    };

    void take_pass() {
        const Pass& pass = walk_.pass();
        found_.clear();
        for (const FoundRecord& record : pass.records) {
            if (is_frame(record)) {
                const Message frame = read_message(frame_of(record));
                found_.push_back({frame, calls_.add(frame)});
            }
        }
        take_damage(pass);
        bool first = !pass.records.empty() && is_frame(pass.records.front());
        for (const Found& found : found_) {
            frames_.add(found.frame, found.added, walk_.start(), first ? pass.text : "");
            note_time(found.frame.elapsed);
            first = false;
        }
    }

    // Stands before the frames of its pass.
    void take_damage(const Pass& pass) {
        const bool cut = std::ranges::any_of(found_, [](const Found& found) { return found.frame.damaged; });
        const std::uint64_t at = damage_.note(pass, cut);
        if (at == 0) {
            return;
        }
        Message place;
        place.name = pass.corrupt_data_at != 0 ? "corrupt data" : "damaged frame";
        place.at = at;
        place.elapsed = pass.records.empty() ? std::nullopt : pass.records.front().elapsed;
        frames_.add_damage(place, walk_.start(), pass.corrupt_data);
    }

    void note_time(std::optional<std::int64_t> elapsed) {
        first_time_ = first_time_ ? first_time_ : elapsed;
        last_time_ = elapsed ? elapsed : last_time_;
    }

    std::vector<std::string> rows() const {
        std::vector<std::string> rows;
        for (std::uint32_t no = 1; no <= calls_.size(); ++no) {
            if (command_.calls.empty() || std::ranges::count(command_.calls, no) != 0) {
                rows.push_back(call_row(calls_.call(no), walk_.start(), ""));
            }
        }
        return rows;
    }

    std::string title() const {
        return command_.trace == "-" ? "standard input" : command_.trace.substr(command_.trace.rfind('/') + 1);
    }

    std::string facts(std::size_t shown_calls) const {
        std::string text = walk_.protocol();
        if (first_time_) {
            text += ", " + time_text(first_time_, walk_.start()) + " to " + time_text(last_time_, walk_.start());
        }
        const FrameData::Counts& counts = frames_.counts();
        const std::string chosen = command_.calls.empty() ? "" : std::to_string(shown_calls) + " of ";
        return text + ": " + chosen + counted(calls_.size(), "call") + ", " + counted(counts.messages, "message") +
               ", " + counted(counts.other_frames, "other frame") + ", " +
               counted(counts.damaged_places, "damaged place");
    }

    const CommandLine& command_;
    TraceWalk walk_;
    CallTable calls_;
    DamageCount damage_;
    FrameData frames_;
    std::vector<Found> found_;  // frames of the pass
    std::optional<std::int64_t> first_time_;
    std::optional<std::int64_t> last_time_;
};

}  // namespace

int main(int argc, char** argv) {
    prepare_streams();
    const CommandLine command = read_command_line(argc, argv);
    PageMaker maker(command);
    maker.read_trace();
    maker.write();
    return maker.tell_end() ? EXIT_SUCCESS : EXIT_FAILURE;
}
