#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// Every octet as two hexadecimal digits.

using HexPairs = std::array<std::array<char, 2>, 256>;

constexpr HexPairs hex_pairs_of(std::string_view digits) {
    HexPairs pairs{};
    for (unsigned octet = 0; octet < pairs.size(); ++octet) {
        pairs[octet] = {digits[octet >> 4U], digits[octet & 0x0FU]};
    }
    return pairs;
}

inline constexpr HexPairs HEX_PAIRS = hex_pairs_of("0123456789abcdef");
inline constexpr HexPairs UPPER_HEX_PAIRS = hex_pairs_of("0123456789ABCDEF");

// The two lower-case digits of an octet; of a larger number, those of its low 8 bits.
inline const char* hex_pair(std::int32_t octet) { return HEX_PAIRS[static_cast<std::uint32_t>(octet) & 0xFFU].data(); }
