#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "io/output_stream.h"
#include "page/page_frame.h"

// The frames of a page as its script reads them: a line of column names; then of each frame a line that begins with a
// tab and holds the frame's values with tabs between them, its lines of the report, and a line end. All is escaped, so
// that no other line begins with a tab. The first value tells what it is: the number of its call, "-" for a message or
// TEI management of no call, "~" for layer 2 and repeated frames, "!" for damage; the second is the elapsed time in
// milliseconds; the others are those of message_row().
class FrameData {
 public:
    // What it holds.
    struct Counts {
        std::uint64_t messages = 0;
        std::uint64_t other_frames = 0;
        std::uint64_t damaged_places = 0;
        std::size_t bytes = 0;
    };

    // Bytes beyond the limit are counted, and not held.
    explicit FrameData(std::size_t limit) : limit_(limit) {}

    // A frame with its lines of the report; trace_start: as of message_row().
    void add(const PageFrame& frame, std::int64_t trace_start, std::string_view lines);

    // Damage, with what the report says about it: `name` is what is damaged, `at` and `elapsed` are where and when.
    void add_damage(const Message& place, std::int64_t trace_start, std::string_view lines);

    [[nodiscard]] const Counts& counts() const { return counts_; }
    void write(OutputStream& page) const;

 private:
    void append(std::string_view key, const Message& frame, const std::string& values, std::string_view lines);
    std::string& block();

    const std::size_t limit_;
    std::vector<std::string> blocks_;
    Counts counts_;
};
