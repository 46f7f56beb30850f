#include "captures/eyesdn_writer.h"

#include <array>
#include <cstring>

#include "captures/eyesdn.h"
#include "io/byte_order.h"

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

}  // namespace

EyesdnWriter::EyesdnWriter(OutputStream& capture) : capture_(capture) {
    char* const at = capture_.room();
    std::memcpy(at, EYESDN_NAME.data(), EYESDN_NAME.size());
    capture_.filled(at + EYESDN_NAME.size());
}

void EyesdnWriter::write(const Frame& frame) {
    std::array<std::uint8_t, EYESDN_HEADER_SIZE> header{};
    const std::span<std::uint8_t> octets(header);
    set_high_octet_first(octets.subspan(0, 3), microseconds_of(frame.when));
    set_high_octet_first(octets.subspan(3, 5), static_cast<std::uint64_t>(seconds_of(frame.when)));
    header[9] = static_cast<std::uint8_t>(EYESDN_DPNSS << 1U | (frame.transmitted ? 1U : 0U));
    set_high_octet_first(octets.subspan(10, 2), frame.octets.size());
    char* const at = capture_.room();
    *at = static_cast<char>(EYESDN_RECORD);
    capture_.filled(put_escaped(at + 1, header));
    capture_.filled(put_escaped(capture_.room(), frame.octets));
}
