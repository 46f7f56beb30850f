#include "driver/trace/clock.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>

#include "driver/trace/format.h"
#include "report/state.h"

TraceHeader Timeb;

namespace {

constexpr std::int64_t TICKS_A_SECOND = 1000 / TICK_MS;  // at resolution 1

// Elapsed time in units of 5 ms: ticks x resolution, which just fits into 64 bits. A count below that of the first
// record has wrapped around: where that makes it up to 24.8 days early, as 32 bits of milliseconds can say, it is
// early.
std::int64_t elapsed(std::uint32_t ticks) {
    const std::int64_t early = std::int64_t{Ticks_resolution} * static_cast<std::int32_t>(ticks);
    return std::abs(early) <= -EARLIEST_TICKS ? early : std::int64_t{Ticks_resolution} * std::int64_t{ticks};
}

}  // namespace

bool read_header(int trace) {
    std::array<std::uint8_t, TRACE_HEADER_SIZE> bytes{};
    if (::pread(trace, bytes.data(), bytes.size(), 0) < 0 && errno != ESPIPE) {
        return false;
    }
    Timeb.time = static_cast<std::int32_t>(std::uint32_t{bytes[0]} | std::uint32_t{bytes[1]} << 8U |
                                           std::uint32_t{bytes[2]} << 16U | std::uint32_t{bytes[3]} << 24U);
    Timeb.millitm = static_cast<std::uint16_t>(bytes[4] | bytes[5] << 8U);
    return true;
}

Moment moment_of(std::uint32_t ticks) {
    const std::int64_t elapsed_5ms = elapsed(ticks);
    std::int64_t seconds = elapsed_5ms / TICKS_A_SECOND;
    std::int64_t milliseconds = Timeb.millitm + elapsed_5ms % TICKS_A_SECOND * TICK_MS;
    if (milliseconds > 999) {
        milliseconds -= 1000;
        ++seconds;
    }
    return {.seconds = Timeb.time + seconds, .milliseconds = milliseconds};
}
