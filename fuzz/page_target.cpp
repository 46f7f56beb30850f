// How a page writes text of a trace, on one input a call, for libFuzzer: no byte becomes markup, and all can be read
// back.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "page/escape.h"

namespace {

unsigned digit(char character) {
    return static_cast<unsigned>(character <= '9' ? character - '0' : character - 'a' + 10);
}

// The bytes that data stand for.
std::string read_back(std::string_view data) {
    std::string bytes;
    for (std::size_t i = 0; i < data.size(); ++i) {
        if (data[i] != '\\') {
            bytes += data[i];
        } else if (data[++i] == '>') {
            bytes.append(39, ' ');
        } else {
            bytes += static_cast<char>(digit(data[i]) * 16 + digit(data[i + 1]));
            ++i;
        }
    }
    return bytes;
}

void check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void check_data(std::string_view data, std::string_view bytes, char separator) {
    check(std::ranges::all_of(data, [&](char byte) { return byte == separator || (byte >= ' ' && byte <= '~'); }));
    check(data.find('<') == std::string_view::npos);
    check(read_back(data) == bytes);
}

void check_html(std::string_view html) {
    check(std::ranges::all_of(html, [](char byte) { return byte >= ' ' && byte <= '~'; }));
    check(html.find_first_of("<>\"'") == std::string_view::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    std::string lines;
    append_data(lines, bytes);
    check_data(lines, bytes, '\n');
    std::string values;
    append_values(values, bytes);
    check_data(values, bytes, '\t');
    check_html(html_text(bytes));
    return 0;
}
