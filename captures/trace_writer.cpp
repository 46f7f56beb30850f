#include "captures/trace_writer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "io/byte_order.h"
#include "io/hex_digits.h"
#include "report/state.h"
#include "trace/clock.h"
#include "trace/format.h"

namespace {

constexpr std::size_t MOST_HELD = 1U << 20U;

constexpr std::uint8_t TICKS_RESOLUTION = 1;
constexpr std::int64_t TICK = std::int64_t{1000} * TICKS_RESOLUTION * TICK_MS;  // in microseconds

// Rounds down, before the start too.
std::int64_t divide(std::int64_t time, std::int64_t unit) { return time / unit - (time % unit < 0 ? 1 : 0); }

}  // namespace

TraceWriter::TraceWriter(OutputStream& trace, std::uint8_t protocol, bool hex_text)
    : trace_(trace), protocol_(protocol), hex_text_(hex_text), time_stamps_(!is_dpnss(Variant{protocol})) {}

bool TraceWriter::has_lines() const { return protocol_ >= BASIC_RATE_FROM; }

// The header, the protocol code and the tick resolution.
void TraceWriter::write_head(std::int64_t when) {
    constexpr std::int64_t EARLIEST = std::numeric_limits<std::int32_t>::min() * MICROSECONDS;
    constexpr std::int64_t LATEST = (std::numeric_limits<std::int32_t>::max() + std::int64_t{1}) * MICROSECONDS - 1;
    const std::int64_t start = std::clamp(when, EARLIEST, LATEST);
    const std::uint32_t milliseconds = microseconds_of(start) / 1000;
    start_ = seconds_of(start) * MICROSECONDS + std::int64_t{milliseconds} * 1000;
    std::array<std::uint8_t, TRACE_HEADER_SIZE> header{};
    set_low_octet_first(std::span(header).subspan(0, 4), static_cast<std::uint32_t>(seconds_of(start)));
    set_low_octet_first(std::span(header).subspan(4, 2), milliseconds);
    write_raw(header);
    write_line(std::array<std::uint8_t, 2>{protocol_, TICKS_RESOLUTION});
    clamped_ += !time_stamps_ && start != when ? 1 : 0;
}

// Writes the records that are held.
void TraceWriter::write_held() {
    const std::size_t data_at = has_lines() ? 3 : 2;
    for (std::span<const std::uint8_t> rest(held_); !rest.empty();) {
        const std::size_t size = data_at + rest[data_at - 1];
        write_line(rest.first(size));
        rest = rest.subspan(size);
    }
    held_ = {};
}

// Begins the trace at a time.
void TraceWriter::begin(std::int64_t when) {
    write_head(when);
    write_held();
    begun_ = true;
}

// Writes the time-stamp records that the next frame needs before it.
void TraceWriter::write_time(std::int64_t when) {
    const std::uint32_t tick = tick_of(when);
    if (!last_tick_) {
        write_time_stamp(0);
    }
    if (last_tick_ != tick) {
        write_time_stamp(tick);
    }
    last_tick_ = tick;
}

// The ticks from the start to a time, rounded down.
std::uint32_t TraceWriter::tick_of(std::int64_t when) {
    const std::int64_t wanted = divide(when - start_, TICK);
    const std::int64_t tick = std::clamp(wanted, EARLIEST_TICKS, LATEST_TICKS);
    clamped_ += tick != wanted ? 1 : 0;
    return static_cast<std::uint32_t>(tick);
}

void TraceWriter::write(const Frame& frame) {
    if (!begun_ && (frame.timed || held_.size() > MOST_HELD)) {
        begin(frame.when);
    }
    if (time_stamps_ && frame.timed) {
        write_time(frame.when);
    }
    write_record(frame.transmitted ? TRANSMIT_MARKER : RECEIVE_MARKER, frame.line, frame.octets);
}

void TraceWriter::finish() {
    if (!begun_) {
        begin(0);
    }
}

void TraceWriter::write_time_stamp(std::uint32_t tick) {
    std::array<std::uint8_t, 4> data{};
    set_low_octet_first(data, tick);
    write_record(TIME_STAMP_MARKER, 0, data);
}

void TraceWriter::write_record(std::int32_t marker, std::uint8_t line, std::span<const std::uint8_t> data) {
    std::array<std::uint8_t, LONGEST_RECORD> record;
    auto* end = record.begin();
    *end++ = static_cast<std::uint8_t>(marker);
    if (has_lines()) {
        *end++ = line;
    }
    *end++ = static_cast<std::uint8_t>(data.size());
    end = std::ranges::copy(data, end).out;
    if (begun_) {
        write_line({record.begin(), end});
    } else {
        held_.insert(held_.end(), record.begin(), end);
    }
}

void TraceWriter::write_raw(std::span<const std::uint8_t> bytes) {
    trace_.filled(std::ranges::copy(bytes, trace_.room()).out);
}

// Writes bytes as binary, or as hex text in a line of their own.
void TraceWriter::write_line(std::span<const std::uint8_t> bytes) {
    if (!hex_text_) {
        write_raw(bytes);
        return;
    }
    constexpr std::size_t PIECE = OutputStream::LONGEST_PIECE / 3;
    while (!bytes.empty()) {
        const auto piece = bytes.first(std::min(bytes.size(), PIECE));
        bytes = bytes.subspan(piece.size());
        char* at = trace_.room();
        for (const std::uint8_t byte : piece) {
            std::memcpy(at, hex_pair(byte), 2);
            at[2] = ' ';
            at += 3;
        }
        at[-1] = bytes.empty() ? '\n' : ' ';
        trace_.filled(at);
    }
}
