#pragma once

#include <cstdint>
#include <optional>

#include "captures/frame.h"
#include "trace/clock.h"
#include "trace/trace_reader.h"

// Reads the frames of a trace in order. The time-stamp records give their times.
class TraceFrames {
 public:
    // Takes only the frames of one line, if that is given.
    explicit TraceFrames(TraceReader& reader, std::optional<std::uint8_t> line = std::nullopt)
        : reader_(reader), line_(line) {}

    // Takes the next frame, which is valid until the next call. False at the end of the trace. A trace that ends within
    // a record aborts the run, as in the decoder.
    bool next(Frame& frame);

    // How many records next() has met so far.
    [[nodiscard]] std::int64_t frames() const { return frames_; }
    [[nodiscard]] std::int64_t debug_records() const { return debug_records_; }
    [[nodiscard]] std::int64_t of_other_lines() const { return of_other_lines_; }
    [[nodiscard]] std::int64_t empty_frames() const { return empty_frames_; }

 private:
    bool note_record();

    TraceReader& reader_;
    const std::optional<std::uint8_t> line_;
    Record record_;
    TraceClock clock_;
    std::int64_t frames_ = 0;
    std::int64_t debug_records_ = 0;
    std::int64_t of_other_lines_ = 0;
    std::int64_t empty_frames_ = 0;
};
