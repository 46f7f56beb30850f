#include "page/escape.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "io/hex_digits.h"

namespace {

constexpr std::string_view INDENT = "                                       ";

// The bytes that stand for themselves in data.
using ByteSet = std::array<bool, 256>;

constexpr ByteSet plain_bytes() {
    ByteSet plain{};
    for (char byte = ' '; byte <= '~'; ++byte) {
        plain[static_cast<std::uint8_t>(byte)] = byte != '<' && byte != '\\';
    }
    return plain;
}

constexpr ByteSet PLAIN = plain_bytes();

std::size_t count_plain(std::string_view bytes) {
    const auto is_plain = [](char byte) { return PLAIN[static_cast<std::uint8_t>(byte)]; };
    return static_cast<std::size_t>(std::ranges::find_if_not(bytes, is_plain) - bytes.begin());
}

// Appends what can stand as it is at the beginning of a text, the `end` after it too, or else an escaped byte. Gives
// how many bytes that are.
std::size_t append_piece(std::string& data, std::string_view bytes, char end) {
    std::size_t size = count_plain(bytes);
    size += size < bytes.size() && bytes[size] == end ? 1 : 0;
    if (size != 0) {
        data.append(bytes.substr(0, size));
        return size;
    }
    data.append("\\").append(hex_pair(static_cast<std::uint8_t>(bytes.front())), 2);
    return 1;
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
        if (bytes.starts_with(INDENT)) {
            data += "\\>";
            bytes.remove_prefix(INDENT.size());
        } else {
            bytes.remove_prefix(append_piece(data, bytes, '\n'));
        }
    }
}

void append_values(std::string& data, std::string_view values) {
    while (!values.empty()) {
        values.remove_prefix(append_piece(data, values, '\t'));
    }
}

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
