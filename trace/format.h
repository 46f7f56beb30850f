#pragma once

#include <cstddef>
#include <cstdint>

// The numbers of the trace format. A trace is a header, the protocol code, the tick resolution, and records: marker,
// line byte (basic rate only), length byte, data. Numbers of several bytes are little-endian.

constexpr std::size_t TRACE_HEADER_SIZE = 10;  // 4 bytes seconds, 2 bytes milliseconds, 4 bytes not used

constexpr std::int32_t BASIC_RATE_FROM = 128;  // protocol codes from here on are those of basic rate
constexpr std::int32_t TICK_MS = 5;            // a tick lasts this times the tick resolution

// Record markers.
constexpr std::int32_t RECEIVE_MARKER = 'R';
constexpr std::int32_t TRANSMIT_MARKER = 'T';
constexpr std::int32_t DEBUG_MARKER = 'D';
constexpr std::int32_t TIME_STAMP_MARKER = 'P';

constexpr std::int32_t LONGEST_DATA = 255;
constexpr std::int32_t LONGEST_RECORD = 3 + LONGEST_DATA;  // a basic-rate one
