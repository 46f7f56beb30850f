#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>

#include "trace/format.h"

// Start of the trace, from the header of every trace file; all zero when it cannot be read.
struct TraceHeader {
    std::int32_t time;      // seconds since 1 January 1970 UTC
    std::uint16_t millitm;  // its milliseconds; any 16 bits in a damaged trace
};

extern TraceHeader Timeb;

// Reads the header of an open trace into `Timeb`, whatever the current position, which does not change. Missing bytes
// are zero; in a file without positions (a pipe) all are missing. False on a read error.
[[nodiscard]] bool read_header(int trace);

// Takes the header from the current position of an open trace, which may be a pipe. Missing bytes are zero. False on a
// read error.
[[nodiscard]] bool take_header(int trace);

// A moment of calendar time.
struct Moment {
    std::int64_t seconds;       // since 1 January 1970 UTC
    std::int64_t milliseconds;  // 0..999 in ordinary traces; a negative resolution or a damaged header gives others
};

// Limits of the elapsed time, in ticks of resolution 1: 24.8 days before the first time-stamp record, and the rest of
// the 32-bit range after it.
constexpr std::int64_t EARLIEST_TICKS = -(std::numeric_limits<std::int32_t>::max() / TICK_MS);
constexpr std::int64_t LATEST_TICKS = std::numeric_limits<std::uint32_t>::max() + EARLIEST_TICKS;

// The moment of a tick count, which counts from the first time-stamp record. Uses `Timeb` and `Ticks_resolution`;
// defined for all values of the three.
Moment moment_of(std::uint32_t ticks);

// The time that a trace has reached, for a program that goes through its records.
class TraceClock {
 public:
    // Takes the data of a time-stamp record. Data too short for a tick count are ignored.
    void note(std::span<const std::uint8_t> time_stamp);

    // Ticks since the first time-stamp record, modulo 2^32; none before that record.
    [[nodiscard]] std::optional<std::uint32_t> ticks() const { return ticks_; }

    // The same in milliseconds, by `Ticks_resolution`; below 0 for a time before the first record. Very long times are
    // cut to a limit.
    [[nodiscard]] std::optional<std::int64_t> elapsed_ms() const;

 private:
    std::uint32_t base_ = 0;  // tick count of the first record
    std::optional<std::uint32_t> ticks_;
};
