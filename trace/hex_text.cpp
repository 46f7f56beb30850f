#include "trace/hex_text.h"

#include <algorithm>
#include <cstring>

#include "report/lines.h"

namespace {

constexpr std::size_t LINE_OCTETS = 26;

}  // namespace

char* hex_text(std::span<const std::uint8_t> octets, std::uint64_t position, char* text) {
    for (const std::uint8_t octet : octets) {
        if (position != 0) {
            *text++ = ' ';
        }
        std::memcpy(text, hex_pair(octet), 2);
        text += 2;
        if (position != 0 && position % LINE_OCTETS == 0) {
            *text++ = '\n';
        }
        ++position;
    }
    return text;
}

void write_hex_text(InputStream& binary, OutputStream& text) {
    std::uint64_t position = 0;
    for (auto block = binary.block(); !block.empty() && !text.lost(); block = binary.block()) {
        while (!block.empty()) {
            const auto octets = block.first(std::min(block.size(), LINE_OCTETS));
            text.filled(hex_text(octets, position, text.room()));
            position += octets.size();
            block = block.subspan(octets.size());
        }
    }
}
