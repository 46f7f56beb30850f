#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "calls/call_table.h"
#include "calls/message.h"
#include "io/output_stream.h"

// The frames of a page as its script reads them: a line of column names; then of each frame a line that begins with a
// tab and holds the frame's values with tabs between them, its lines of the report, and a line end. All is escaped, so
// that no other line begins with a tab. The first value tells what it is: the number of its call, "-" for a message or
// TEI management of no call, "~" for layer 2 and repeated frames, "!" for damage; the second is the elapsed time in
// milliseconds; the others are those of message_row().
class FrameData {
 public:
    struct Counts {
        std::uint64_t messages = 0;
        std::uint64_t other_frames = 0;
        std::uint64_t damaged_places = 0;
    };

    // calls: the numbers of those wanted; none: all of the trace. Of calls that are chosen the page holds their frames,
    // and layer 2 and damage from the first to the last frame of each. limit: how many bytes are kept.
    FrameData(std::vector<std::uint32_t> calls, std::size_t limit);

    // A frame that the table of calls has added, in the order of the trace, with its lines of the report. trace_start:
    // as of message_row().
    void add(const Message& frame, const CallTable::Added& added, std::int64_t trace_start, std::string_view lines);

    // Damage before the next frame, with what the report says about it: `name` is what is damaged, `at` and `elapsed`
    // are where and when.
    void add_damage(const Message& place, std::int64_t trace_start, std::string_view lines);

    // To be called once, at the end of the trace: how many bytes it has. More than the limit: it is not whole.
    [[nodiscard]] std::size_t finish();

    // What it holds once it is finished, and writes it.
    [[nodiscard]] const Counts& counts() const { return counts_; }
    void write(OutputStream& page) const;

 private:
    // A stretch of the trace: of all calls there is one; of those chosen what precedes them, then by turns a frame of
    // theirs, and what follows it.
    struct Stretch {
        std::string text;
        Counts counts;
    };

    void append(std::string_view key, const Message& frame, const std::string& values, std::string_view lines);
    [[nodiscard]] std::vector<bool> stretches_of_calls() const;

    const std::vector<std::uint32_t> calls_;
    const std::size_t limit_;
    std::vector<Stretch> stretches_;
    std::map<std::uint32_t, std::pair<std::size_t, std::size_t>> spans_;  // of each call chosen, first and last stretch
    Counts counts_;
};
