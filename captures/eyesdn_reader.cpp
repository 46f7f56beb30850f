#include "captures/eyesdn_reader.h"

#include "captures/eyesdn.h"
#include "io/byte_order.h"

namespace {

// The seconds of the time: 40 bits, below 0 before 1970.
std::int64_t seconds_in(std::span<const std::uint8_t> header) {
    return static_cast<std::int64_t>(high_octet_first(header.subspan(3, 5)) << 24U) >> 24U;
}

bool is_frame(std::uint8_t channel, unsigned protocol) {
    return channel == 0 && (protocol == EYESDN_LAPD || protocol == EYESDN_DPNSS);
}

}  // namespace

// The next octet of the record, or END where the record or the file ends.
int EyesdnReader::octet() {
    int octet = record_begun_ ? InputStream::END : stream_.byte();
    const bool escaped = octet == EYESDN_ESCAPE;
    if (escaped) {
        octet = stream_.byte();
    }
    if (octet == EYESDN_RECORD) {
        record_begun_ = true;
        return InputStream::END;
    }
    return escaped && octet != InputStream::END ? (octet + EYESDN_ESCAPED_BY) & 0xFF : octet;
}

bool EyesdnReader::read(std::span<std::uint8_t> octets) {
    for (std::uint8_t& each : octets) {
        const int next = octet();
        if (next == InputStream::END) {
            return false;
        }
        each = static_cast<std::uint8_t>(next);
    }
    return true;
}

// Skips up to the octet that begins the next record, and takes it. True when there was nothing to skip.
bool EyesdnReader::find_record() {
    bool skipped = false;
    while (octet() != InputStream::END) {
        skipped = true;
    }
    return !skipped;
}

bool EyesdnReader::next(Packet& packet) {
    packet = {.number = ++number_};
    if (!find_record()) {
        packet.trouble = "octets that belong to no record";
        return true;
    }
    if (!record_begun_) {
        return false;
    }
    record_begun_ = false;
    std::array<std::uint8_t, EYESDN_HEADER_SIZE> header{};
    const bool whole_header = read(header);
    const std::span<std::uint8_t> octets(octets_.data(), high_octet_first(std::span(header).subspan(10)));
    if (!whole_header || !read(octets)) {
        packet.trouble = "the record is cut short";
        return true;
    }
    packet.other = !is_frame(header[8], header[9] >> 1U);
    packet.frame = {.transmitted = (header[9] & 1U) != 0, .octets = octets};
    set_time(packet, seconds_in(header), static_cast<std::int64_t>(high_octet_first(std::span(header).first(3))));
    return true;
}
