#pragma once

#include <bitset>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "captures/capture_reader.h"
#include "captures/trace_writer.h"

// Takes the frames of a capture into a trace. Names each packet that cannot become a record on standard error; of each
// kind of trouble the first ten.
class Conversion {
 public:
    // Takes only the frames of one line, if that is given.
    Conversion(CaptureReader& reader, TraceWriter& writer, std::optional<std::uint8_t> line)
        : reader_(reader), writer_(writer), line_(line) {}

    // Takes the next packet. False at the end of the capture; the trace is complete then.
    bool next();

    // Says on standard error how much was converted, and what was lost. True when nothing was.
    [[nodiscard]] bool tell_result() const;

 private:
    void take(const Packet& packet);
    void leave_out(const Packet& packet, const char* trouble);
    void write(const Packet& packet);
    void tell_more_trouble() const;
    void tell_counts() const;
    [[nodiscard]] bool is_of_other_line(const Packet& packet) const;
    [[nodiscard]] bool merges_lines() const;
    [[nodiscard]] std::string list_of_lines() const;

    CaptureReader& reader_;
    TraceWriter& writer_;
    const std::optional<std::uint8_t> line_;
    std::int64_t packets_ = 0;
    std::int64_t frames_ = 0;
    std::int64_t others_ = 0;
    std::int64_t of_other_lines_ = 0;
    std::int64_t unusable_ = 0;
    std::int64_t wrong_fractions_ = 0;
    std::map<std::string, std::int64_t> troubles_;  // how often each kind was met
    std::bitset<256> lines_;                        // those of the frames taken
};
