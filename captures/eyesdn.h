#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// EyeSDN files: the name, then records. A record is an octet FF, a header of 12 octets, and the frame. In header and
// frame an octet FE is an escape: it means the next octet plus 2. The header's numbers have the high octet first.
//
//   0  microseconds
//   3  seconds since 1 January 1970 UTC
//   8  channel, 0: the D channel
//   9  bit 1: transmitted; the other bits: protocol
//  10  length of the frame
constexpr std::string_view EYESDN_NAME = "EyeSDN";
constexpr std::size_t EYESDN_HEADER_SIZE = 12;

constexpr std::uint8_t EYESDN_RECORD = 0xFF;
constexpr std::uint8_t EYESDN_ESCAPE = 0xFE;
constexpr std::uint8_t EYESDN_ESCAPED_BY = 2;

constexpr std::uint8_t EYESDN_LAPD = 0;
constexpr std::uint8_t EYESDN_DPNSS = 5;
