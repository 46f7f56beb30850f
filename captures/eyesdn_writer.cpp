#include "captures/eyesdn_writer.h"

#include <array>
#include <cstring>

#include "captures/eyesdn.h"

namespace {

char* put_escaped(char* at, std::span<const std::uint8_t> octets) {
    for (const std::uint8_t octet : octets) {
        if (octet >= EYESDN_ESCAPE) {
            *at++ = static_cast<char>(EYESDN_ESCAPE);
            *at++ = static_cast<char>(octet - EYESDN_ESCAPED_BY);
        } else {
            *at++ = static_cast<char>(octet);
        }
    }
    return at;
}

void set_big_endian(std::span<std::uint8_t> octets, std::uint64_t number) {
    for (std::size_t i = octets.size(); i-- > 0; number >>= 8U) {
        octets[i] = static_cast<std::uint8_t>(number);
    }
}

}  // namespace

void write_eyesdn_header(OutputStream& capture) {
    char* const at = capture.room();
    std::memcpy(at, EYESDN_NAME.data(), EYESDN_NAME.size());
    capture.filled(at + EYESDN_NAME.size());
}

void write_eyesdn_frame(const Frame& frame, OutputStream& capture) {
    std::array<std::uint8_t, EYESDN_HEADER_SIZE> header{};
    const std::span<std::uint8_t> octets(header);
    set_big_endian(octets.subspan(0, 3), microseconds_of(frame.when));
    set_big_endian(octets.subspan(3, 5), static_cast<std::uint64_t>(seconds_of(frame.when)));
    header[9] = static_cast<std::uint8_t>(EYESDN_DPNSS << 1U | (frame.transmitted ? 1U : 0U));
    set_big_endian(octets.subspan(10, 2), frame.octets.size());
    char* const at = capture.room();
    *at = static_cast<char>(EYESDN_RECORD);
    capture.filled(put_escaped(at + 1, header));
    capture.filled(put_escaped(capture.room(), frame.octets));
}
