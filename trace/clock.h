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

// Reads the header of an open trace into `Timeb`, wherever the trace is read just now; bytes that it does not have are
// zero, and so is all of a file that cannot be positioned. False when it cannot be read.
[[nodiscard]] bool read_header(int trace);

// Takes the header, the next bytes of an open trace, which may be a pipe; bytes that it does not have are zero. False
// when it cannot be read.
[[nodiscard]] bool take_header(int trace);

// A moment of calendar time.
struct Moment {
    std::int64_t seconds;       // since 1 January 1970 UTC
    std::int64_t milliseconds;  // 0..999 in ordinary traces; a negative resolution or a damaged header gives others
};

// Elapsed time that a tick count of resolution 1 can say: up to 24.8 days before the first time-stamp record, and as
// much after it as is left.
constexpr std::int64_t EARLIEST_TICKS = -(std::numeric_limits<std::int32_t>::max() / TICK_MS);
constexpr std::int64_t LATEST_TICKS = std::numeric_limits<std::uint32_t>::max() + EARLIEST_TICKS;

// The moment of a tick count, counted from the first time-stamp record, by `Timeb` and `Ticks_resolution`. Defined for
// every value of the three.
Moment moment_of(std::uint32_t ticks);

// The time that a trace has reached, for a program that goes through its records.
class TraceClock {
 public:
    // Takes the data of a time-stamp record; those of less than a tick count say no time.
    void note(std::span<const std::uint8_t> time_stamp);

    // Ticks since the first time-stamp record, modulo 2 to the 32nd; none before that.
    [[nodiscard]] std::optional<std::uint32_t> ticks() const { return ticks_; }

    // The same in milliseconds by `Ticks_resolution`, below 0 where the trace goes back; times far off are cut.
    [[nodiscard]] std::optional<std::int64_t> elapsed_ms() const;

 private:
    std::uint32_t base_ = 0;  // tick count of the first record
    std::optional<std::uint32_t> ticks_;
};
