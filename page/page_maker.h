#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calls/call_table.h"
#include "calls/damage.h"
#include "calls/trace_walk.h"
#include "io/output_stream.h"
#include "page/call_choice.h"
#include "page/frame_data.h"

// Goes through a trace, and makes a page of it.
class PageMaker {
 public:
    // calls: the numbers of those that the page is about; none: all.
    PageMaker(std::string trace, bool hex_trace, const std::vector<std::uint32_t>& calls);

    // Goes through the trace, for a choice of calls twice. Ends the run with a message and status 1 when the trace
    // cannot be read, or lacks one of the calls.
    void read_trace();

    // Writes the page into a file. Ends the run with a message and status 1 when it would be too large, or the file
    // cannot be written.
    void write(const std::string& file);

    // Says where the trace is damaged. False when it was not read to its end.
    [[nodiscard]] bool tell_damage() const { return ::tell_damage(trace_, walk_, damage_); }

 private:
    void open(TraceWalk& walk) const;
    void note_choice();
    void take_pass();
    void take_damage(const Pass& pass);
    [[nodiscard]] std::string_view lines_of(const Pass& pass) const;
    void note_time(std::optional<std::int64_t> elapsed);
    [[nodiscard]] std::vector<std::string> call_rows() const;
    [[nodiscard]] std::string title() const;
    [[nodiscard]] std::string facts(std::size_t shown_calls) const;

    const std::string trace_;
    const bool hex_trace_;
    const std::vector<std::uint32_t>& chosen_;
    CallChoice choice_;
    TraceWalk walk_;
    CallTable calls_;
    DamageCount damage_;
    FrameData data_;
    std::vector<PageFrame> frames_;  // of the pass
    std::optional<std::int64_t> first_time_;
    std::optional<std::int64_t> last_time_;
};
