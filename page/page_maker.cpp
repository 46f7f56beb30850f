#include "page/page_maker.h"

#include <utility>

#include "calls/columns.h"
#include "calls/frame_of.h"
#include "io/diagnostics.h"
#include "io/file_access.h"
#include "io/operands.h"
#include "page/page_writer.h"
#include "trace/trace_reader.h"

namespace {

constexpr std::size_t LARGEST_PAGE = 100'000'000;  // bytes; browsers are slow to show more
constexpr std::size_t LAYER_2_HEAD = 4;            // octets of address and control field, at most

OutputStream page;

// Adds the frames of a pass to the table of calls.
void add_frames(const Pass& pass, CallTable& calls, std::vector<PageFrame>& frames) {
    frames.clear();
    for (const FoundRecord& record : pass.records) {
        if (is_frame(record)) {
            Message message = read_message(frame_of(record));
            const CallTable::Added added = calls.add(message);
            const bool has_content = pass.out_of_step || record.record.octets().size() > LAYER_2_HEAD;
            frames.push_back({.message = std::move(message), .added = added, .has_content = has_content});
        }
    }
}

// How a trace ended early.
std::string_view end_text(TraceWalk::End end) {
    switch (end) {
        case TraceWalk::End::WHOLE: return "";
        case TraceWalk::End::CUT: return "; the trace is cut";
        case TraceWalk::End::UNREADABLE: return "; the trace could not be read to its end";
    }
    return "";
}

// "1 call", "7 calls"
std::string counted(std::uint64_t number, const std::string& what) {
    return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

}  // namespace

PageMaker::PageMaker(std::string trace, bool hex_trace, const std::vector<std::uint32_t>& calls)
    : trace_(std::move(trace)),
      hex_trace_(hex_trace),
      chosen_(calls),
      choice_(calls),
      walk_(true),
      data_(LARGEST_PAGE) {}

void PageMaker::open(TraceWalk& walk) const {
    if (!walk.open(trace_.c_str(), hex_trace_)) {
        fail_with_reason("cannot read " + trace_);
    }
}

void PageMaker::read_trace() {
    if (!choice_.all()) {
        note_choice();
    }
    open(walk_);
    while (walk_.next()) {
        take_pass();
    }
}

void PageMaker::note_choice() {
    TraceWalk walk(false);
    CallTable calls;
    open(walk);
    if (trace_ == "-" || !is_regular_file(ifp.descriptor())) {
        fail(trace_ + ": -c needs the name of a file, to read the trace twice");
    }
    while (walk.next()) {
        add_frames(walk.pass(), calls, frames_);
        for (const PageFrame& frame : frames_) {
            choice_.note(frame);
        }
    }
    for (const std::uint32_t no : chosen_) {
        if (no > calls.size()) {
            fail(trace_ + ": has no call " + std::to_string(no));
        }
    }
}

// The lines of a pass are those of its first record.
void PageMaker::take_pass() {
    const Pass& pass = walk_.pass();
    add_frames(pass, calls_, frames_);
    take_damage(pass);
    bool first = !pass.records.empty() && is_frame(pass.records.front());
    for (const PageFrame& frame : frames_) {
        if (choice_.shows(frame)) {
            data_.add(frame, walk_.start(), first ? lines_of(pass) : std::string_view());
        }
        note_time(frame.message.elapsed);
        first = false;
    }
}

// What the decoder writes out of step can hold octets of any call.
std::string_view PageMaker::lines_of(const Pass& pass) const {
    return choice_.all() || !pass.out_of_step ? pass.text : std::string_view();
}

// Damage stands before the frames of its pass. Its lines can hold octets of any call.
void PageMaker::take_damage(const Pass& pass) {
    for (const PageFrame& frame : frames_) {
        damage_.note(frame.message);
    }
    const std::uint64_t at = damage_.note(pass);
    if (at == 0 || !choice_.shows_damage(frames_)) {
        return;
    }
    const bool corrupt_data = pass.corrupt_data_at != 0;
    Message place;
    place.name = corrupt_data ? "corrupt data" : "damaged frame";
    place.at = at;
    place.elapsed = pass.records.empty() ? std::nullopt : pass.records.front().elapsed;
    const std::string_view lines = corrupt_data ? pass.corrupt_data : pass.text;
    data_.add_damage(place, walk_.start(), choice_.all() ? lines : std::string_view());
}

void PageMaker::note_time(std::optional<std::int64_t> elapsed) {
    first_time_ = first_time_ ? first_time_ : elapsed;
    last_time_ = elapsed ? elapsed : last_time_;
}

void PageMaker::write(const std::string& file) {
    const std::vector<std::string> rows = call_rows();
    std::size_t bytes = data_.counts().bytes;
    for (const std::string& row : rows) {
        bytes += row.size();
    }
    if (bytes > LARGEST_PAGE) {
        fail("a page of more than 100 MB: choose some of its " + counted(calls_.size(), "call") + " with -c");
    }
    create_target(page, file.c_str(), ifp.descriptor());
    write_page(page, {.title = title(), .facts = facts(rows.size()), .calls = rows}, data_);
    close_target(page);
}

std::vector<std::string> PageMaker::call_rows() const {
    std::vector<std::string> rows;
    for (std::uint32_t no = 1; no <= calls_.size(); ++no) {
        if (choice_.has(no)) {
            rows.push_back(call_row(calls_.call(no), walk_.start(), ""));
        }
    }
    return rows;
}

std::string PageMaker::title() const { return trace_ == "-" ? "standard input" : trace_.substr(trace_.rfind('/') + 1); }

std::string PageMaker::facts(std::size_t shown_calls) const {
    std::string text = walk_.protocol();
    if (first_time_) {
        text += ", " + time_text(first_time_, walk_.start()) + " to " + time_text(last_time_, walk_.start());
    }
    text += ": " + (choice_.all() ? std::string() : std::to_string(shown_calls) + " of ");
    text += counted(calls_.size(), "call");
    const FrameData::Counts& counts = data_.counts();
    return text + ", " + counted(counts.messages, "message") + ", " + counted(counts.other_frames, "other frame") +
           ", " + counted(counts.damaged_places, "damaged place") + std::string(end_text(walk_.end()));
}
