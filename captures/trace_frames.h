#pragma once

#include <cstdint>

#include "captures/frame.h"
#include "driver/trace/trace_reader.h"

// The frames of the trace `ifp`, in order, with the times that its time-stamp records give them.
class TraceFrames {
 public:
    // Takes the next frame, which stands until the next call; false at the end of the trace. A trace that ends within a
    // record ends the run, as in the decoder.
    bool next(Frame& frame);

    // How many records next() has met so far.
    [[nodiscard]] std::int64_t frames() const { return frames_; }
    [[nodiscard]] std::int64_t debug_records() const { return debug_records_; }
    [[nodiscard]] std::int64_t empty_frames() const { return empty_frames_; }

 private:
    bool note_record();
    void time_stamp();

    Record record_;
    bool stamped_ = false;         // whether there was a time-stamp record
    std::uint32_t tick_base_ = 0;  // tick count of the first one
    std::uint32_t ticks_ = 0;      // of the last one, counted from the first
    std::int64_t frames_ = 0;
    std::int64_t debug_records_ = 0;
    std::int64_t empty_frames_ = 0;
};
