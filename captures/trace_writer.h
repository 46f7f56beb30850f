#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "captures/frame.h"
#include "io/output_stream.h"

// Writes a trace: binary, or as hex text of one record a line.
//
// - It starts at the time of the first frame that has one. Frames before that are held in memory. When they are more
//   than 1 MiB, the trace starts in 1970.
// - A time-stamp record comes before each frame whose tick differs from that of the frame before. Two come before the
//   first frame that has a time.
// - DASS2 and DPNSS traces have no time-stamp records, because their decoders know none.
class TraceWriter {
 public:
    TraceWriter(OutputStream& trace, std::uint8_t protocol, bool hex_text);

    // Writes a frame of 1..255 octets.
    void write(const Frame& frame);

    // Writes what is still held. To be called last.
    void finish();

    // Whether records hold the number of their line.
    [[nodiscard]] bool has_lines() const;

    // How many frames have the nearest time that the trace can hold, instead of their own.
    [[nodiscard]] std::int64_t clamped() const { return clamped_; }

 private:
    void begin(std::int64_t when);
    void write_head(std::int64_t when);
    void write_held();
    std::uint32_t tick_of(std::int64_t when);
    void write_time(std::int64_t when);
    void write_time_stamp(std::uint32_t tick);
    void write_record(std::int32_t marker, std::uint8_t line, std::span<const std::uint8_t> data);
    void write_line(std::span<const std::uint8_t> bytes);
    void write_raw(std::span<const std::uint8_t> bytes);

    OutputStream& trace_;
    const std::uint8_t protocol_;
    const bool hex_text_;
    const bool time_stamps_;
    bool begun_ = false;
    std::vector<std::uint8_t> held_;  // records before the trace has begun
    std::int64_t start_ = 0;          // of the trace, in microseconds, as in its header
    std::optional<std::uint32_t> last_tick_;
    std::int64_t clamped_ = 0;
};
