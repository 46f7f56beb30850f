#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "io/hex_digits.h"
#include "report/state.h"

// Every way to write into the report: the line words. All lines of a transmitted frame begin with the transmit indent;
// the comment of a word says whether it writes that indent. The columns below count from the end of the indent:
//
//   0    6        15
//     3:  1------- Extension Bit           a literal: octet tag, pattern, label
//         -00----- Coding Standard         field()
//
// Words that copy a literal are always inlined: then its length is known, and the copy costs almost nothing.
//
// A literal holds its blanks and its line end, so that grep finds the code of a report line. For a title or a message,
// grep the name without its "(0x..)"; for a numbered line, grep the label.

namespace detail {

using Pattern = std::array<char, 8>;

inline constexpr auto DASHES = std::bit_cast<std::uint64_t>(Pattern{'-', '-', '-', '-', '-', '-', '-', '-'});

// An octet as eight characters, bit 8 first.
inline constexpr auto OCTET_PATTERNS = [] {
    std::array<std::uint64_t, 256> patterns{};
    for (unsigned octet = 0; octet < 256; ++octet) {
        Pattern pattern{};
        for (unsigned position = 0; position < 8; ++position) {
            pattern[position] = ((octet << position) & 0x80U) != 0 ? '1' : '0';
        }
        patterns[octet] = std::bit_cast<std::uint64_t>(pattern);
    }
    return patterns;
}();

// All bits set in the characters of bit positions hi..lo, indexed [hi][lo].
inline constexpr auto FIELD_MASKS = [] {
    std::array<std::array<std::uint64_t, 9>, 9> masks{};
    for (unsigned hi = 1; hi <= 8; ++hi) {
        for (unsigned lo = 1; lo <= hi; ++lo) {
            Pattern mask{};
            for (unsigned bit = lo; bit <= hi; ++bit) {
                mask[8 - bit] = '\xFF';
            }
            masks[hi][lo] = std::bit_cast<std::uint64_t>(mask);
        }
    }
    return masks;
}();

// Put something at a place in the report's buffer and return the place after it.
[[gnu::always_inline]] inline char* put(char* at, std::string_view piece) {
    std::memcpy(at, piece.data(), piece.size());
    return at + piece.size();
}

[[gnu::always_inline]] inline char* put_indent(char* at, std::int32_t direction) {
    return direction == 0 ? put(at, "                                       ") : at;
}

[[gnu::always_inline]] inline char* put_hex(char* at, std::int32_t octet) {
    std::memcpy(at, hex_pair(octet), 2);
    return at + 2;
}

// Six spaces and the bits of positions hi..lo.
[[gnu::always_inline]] inline char* put_bits(char* at, std::int32_t bits, unsigned hi, unsigned lo) {
    const std::uint64_t inside = FIELD_MASKS[hi][lo];
    const std::uint64_t pattern =
        (OCTET_PATTERNS[static_cast<std::uint32_t>(bits) & 0xFFU] & inside) | (DASHES & ~inside);
    at = put(at, "      ");
    std::memcpy(at, &pattern, sizeof pattern);
    return at + sizeof pattern;
}

}  // namespace detail

// Continues the line with a text.
[[gnu::always_inline]] inline void text(std::string_view literal) { ofp.filled(detail::put(ofp.room(), literal)); }

// Begins a line: the transmit indent, 39 spaces, when direction is 0 (callers pass `flag`); nothing otherwise.
[[gnu::always_inline]] inline void output(std::int32_t direction) {
    ofp.filled(detail::put_indent(ofp.room(), direction));
}

// A whole literal line, or the first piece of one: indent and text.
[[gnu::always_inline]] inline void line(std::string_view literal) {
    ofp.filled(detail::put(detail::put_indent(ofp.room(), flag), literal));
}

// Indent, six spaces and the bit pattern: the bits of positions hi..lo (8 >= hi >= lo >= 1) as '1' and '0', '-' for
// every other position. The caller continues with a space, the label and a line end.
inline void bitwise(std::int32_t bit_field, unsigned hi, unsigned lo) {
    ofp.filled(detail::put_bits(detail::put_indent(ofp.room(), flag), bit_field, hi, lo));
}

// A field of the octet in `value`: its bits hi..lo as a pattern line with a label (" Coding Standard\n").
[[gnu::always_inline]] inline void field(unsigned hi, unsigned lo, std::string_view label) {
    char* const at = detail::put_bits(detail::put_indent(ofp.room(), flag), value, hi, lo);
    ofp.filled(detail::put(at, label));
}

// Continues the line with one of two texts, by the extension bit (bit 8) of the octet in `value`.
inline void extension_bit(std::string_view when_1, std::string_view when_0) {
    text((value & 0x80) != 0 ? when_1 : when_0);
}

// Whether the extension bit of the octet in `value` says that another octet of its group follows.
inline bool extension_follows() { return (value & 0x80) == 0; }

// Continues the line with an octet as two lower-case hexadecimal digits.
inline void hex(std::int32_t octet) { ofp.filled(detail::put_hex(ofp.room(), octet)); }

// Continues the line with an octet as two upper-case hexadecimal digits (corrupt data and debug records).
void upper_hex(std::int32_t octet);

// Continues the line with a decimal number, no leading zeros.
void decimal(std::int32_t number);

// Continues the line with one byte as it is, printable or not.
inline void character(std::int32_t octet) {
    char* const at = ofp.room();
    *at = static_cast<char>(octet);
    ofp.filled(at + 1);
}

// Continues the line with an octet in hexadecimal between two texts: "  3:     0x40  Signal Value\n".
[[gnu::always_inline]] inline void value_text(std::string_view before, std::int32_t octet, std::string_view after) {
    ofp.filled(detail::put(detail::put_hex(detail::put(ofp.room(), before), octet), after));
}

// Continues the line with a name and the octet in `value`: "SETUP(0x05)\n".
[[gnu::always_inline]] inline void named_octet(std::string_view name) {
    char* const at = detail::put(detail::put(ofp.room(), name), "(0x");
    ofp.filled(detail::put(detail::put_hex(at, value), ")\n"));
}
