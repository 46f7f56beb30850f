#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "captures/frame.h"
#include "io/output_stream.h"

// Writes a trace: binary, or as hex text of one record a line. It starts at the time of its first frame. A time-stamp
// record comes before every frame whose tick differs from that of the frame before, and two before the first one; DASS2
// and DPNSS traces, whose decoders know none, hold none.
class TraceWriter {
 public:
    TraceWriter(OutputStream& trace, std::uint8_t protocol, bool hex_text);

    // Writes a frame of 1..255 octets.
    void write(const Frame& frame);

    // Writes the head when no frame has; to be called last.
    void finish();

    // How many frames had a time that a trace cannot say, and have the nearest one.
    [[nodiscard]] std::int64_t clamped() const { return clamped_; }

 private:
    void write_head(std::int64_t when);
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
    std::int64_t start_ = 0;  // of the trace, as its header says it
    std::optional<std::uint32_t> last_tick_;
    std::int64_t clamped_ = 0;
};
