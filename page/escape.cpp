#include "page/escape.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "io/hex_digits.h"

namespace {

constexpr std::string_view INDENT = "                                       ";

// The bytes that stand for themselves.
using ByteSet = std::array<bool, 256>;

// Printable ASCII without '<' and '\', and one byte more.
constexpr ByteSet plain_bytes_and(char other) {
    ByteSet plain{};
    for (char byte = ' '; byte <= '~'; ++byte) {
        plain[static_cast<std::uint8_t>(byte)] = byte != '<' && byte != '\\';
    }
    plain[static_cast<std::uint8_t>(other)] = true;
    return plain;
}

constexpr ByteSet PLAIN_IN_LINES = plain_bytes_and('\n');
constexpr ByteSet PLAIN_IN_VALUES = plain_bytes_and('\t');

void append_escaped(std::string& data, std::string_view bytes, const ByteSet& plain) {
    const auto is_plain = [&](char byte) { return plain[static_cast<std::uint8_t>(byte)]; };
    for (;;) {
        const auto* const end = std::ranges::find_if_not(bytes, is_plain);
        data.append(bytes.begin(), end);
        if (end == bytes.end()) {
            return;
        }
        data.append("\\").append(hex_pair(static_cast<std::uint8_t>(*end)), 2);
        bytes.remove_prefix(static_cast<std::size_t>(end - bytes.begin()) + 1);
    }
}

std::string_view entity(char byte) {
    switch (byte) {
        case '&': return "&amp;";
        case '<': return "&lt;";
        case '>': return "&gt;";
        case '"': return "&quot;";
        case '\'': return "&#39;";
        default: return {};
    }
}

}  // namespace

void append_data(std::string& data, std::string_view bytes) {
    while (!bytes.empty()) {
        for (; bytes.starts_with(INDENT); bytes.remove_prefix(INDENT.size())) {
            data += "\\>";
        }
        const std::size_t line_end = bytes.find('\n');
        const std::string_view line = bytes.substr(0, line_end == std::string_view::npos ? line_end : line_end + 1);
        append_escaped(data, line, PLAIN_IN_LINES);
        bytes.remove_prefix(line.size());
    }
}

void append_values(std::string& data, std::string_view values) { append_escaped(data, values, PLAIN_IN_VALUES); }

std::string html_text(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        const std::string_view written = entity(byte);
        if (!written.empty()) {
            text += written;
        } else {
            text += byte >= ' ' && byte <= '~' ? byte : '?';
        }
    }
    return text;
}
