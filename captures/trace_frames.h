#pragma once

#include <cstdint>

#include "captures/frame.h"
#include "trace/clock.h"
#include "trace/trace_reader.h"

// The frames of a trace, in order, with the times that its time-stamp records give them.
class TraceFrames {
 public:
    explicit TraceFrames(TraceReader& reader) : reader_(reader) {}

    // Takes the next frame, which stands until the next call; false at the end of the trace. A trace that ends within a
    // record aborts the run, as in the decoder.
    bool next(Frame& frame);

    // How many records next() has met so far.
    [[nodiscard]] std::int64_t frames() const { return frames_; }
    [[nodiscard]] std::int64_t debug_records() const { return debug_records_; }
    [[nodiscard]] std::int64_t empty_frames() const { return empty_frames_; }

 private:
    bool note_record();

    TraceReader& reader_;
    Record record_;
    TraceClock clock_;
    std::int64_t frames_ = 0;
    std::int64_t debug_records_ = 0;
    std::int64_t empty_frames_ = 0;
};
