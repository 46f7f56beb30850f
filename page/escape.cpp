#include "page/escape.h"

#include <algorithm>
#include <cstdint>

#include "io/hex_digits.h"

namespace {

constexpr std::string_view INDENT = "                                       ";

bool stands_for_itself(char byte) {
    return byte == '\n' || (byte >= ' ' && byte <= '~' && byte != '<' && byte != '\\');
}

void append_line(std::string& data, std::string_view line) {
    for (; line.starts_with(INDENT); line.remove_prefix(INDENT.size())) {
        data += "\\>";
    }
    while (!line.empty()) {
        const auto* const end = std::ranges::find_if_not(line, stands_for_itself);
        data.append(line.begin(), end);
        line.remove_prefix(static_cast<std::size_t>(end - line.begin()));
        if (!line.empty()) {
            data.append("\\").append(hex_pair(static_cast<std::uint8_t>(line.front())), 2);
            line.remove_prefix(1);
        }
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
        const std::size_t line_end = bytes.find('\n');
        const std::size_t size = line_end == std::string_view::npos ? bytes.size() : line_end + 1;
        append_line(data, bytes.substr(0, size));
        bytes.remove_prefix(size);
    }
}

void append_values(std::string& data, std::string_view values) {
    for (std::size_t tab = values.find('\t'); tab != std::string_view::npos; tab = values.find('\t')) {
        append_data(data, values.substr(0, tab));
        data += '\t';
        values.remove_prefix(tab + 1);
    }
    append_data(data, values);
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
