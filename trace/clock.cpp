#include "trace/clock.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <span>

#include "io/byte_order.h"
#include "report/state.h"
#include "trace/format.h"

TraceHeader Timeb;

namespace {

constexpr std::int64_t TICKS_A_SECOND = 1000 / TICK_MS;  // at resolution 1

// Elapsed time in units of 5 ms: ticks x resolution, which just fits into 64 bits. A count below that of the first
// record wraps around to a large one. It is taken as a time before the first record if that is at most 24.8 days before
// (31 bits of milliseconds).
std::int64_t elapsed(std::uint32_t ticks) {
    const std::int64_t early = std::int64_t{Ticks_resolution} * static_cast<std::int32_t>(ticks);
    return std::abs(early) <= -EARLIEST_TICKS ? early : std::int64_t{Ticks_resolution} * std::int64_t{ticks};
}

void set_header(std::span<const std::uint8_t> bytes) {
    Timeb.time = static_cast<std::int32_t>(low_octet_first(bytes.first(4)));
    Timeb.millitm = static_cast<std::uint16_t>(low_octet_first(bytes.subspan(4, 2)));
}

}  // namespace

bool read_header(int trace) {
    std::array<std::uint8_t, TRACE_HEADER_SIZE> bytes{};
    if (::pread(trace, bytes.data(), bytes.size(), 0) < 0 && errno != ESPIPE) {
        return false;
    }
    set_header(bytes);
    return true;
}

bool take_header(int trace) {
    std::array<std::uint8_t, TRACE_HEADER_SIZE> bytes{};
    ssize_t count = 0;
    for (std::size_t held = 0; held < bytes.size(); held += static_cast<std::size_t>(count)) {
        count = ::read(trace, bytes.data() + held, bytes.size() - held);
        if (count < 0 && errno == EINTR) {
            count = 0;
        } else if (count <= 0) {
            break;
        }
    }
    set_header(bytes);
    return count >= 0;
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

void TraceClock::note(std::span<const std::uint8_t> time_stamp) {
    constexpr std::size_t TICK_COUNT_SIZE = 4;
    if (time_stamp.size() < TICK_COUNT_SIZE) {
        return;
    }
    const auto count = static_cast<std::uint32_t>(low_octet_first(time_stamp.first(TICK_COUNT_SIZE)));
    if (!ticks_) {
        base_ = count;
    }
    ticks_ = count - base_;
}

std::optional<std::int64_t> TraceClock::elapsed_ms() const {
    constexpr std::int64_t FAR_OFF = std::int64_t{1} << 56U;  // still fits when counted in milliseconds
    if (!ticks_) {
        return std::nullopt;
    }
    return std::clamp(elapsed(*ticks_), -FAR_OFF, FAR_OFF) * TICK_MS;
}
