#include "captures/pcap_writer.h"

#include <array>
#include <bit>
#include <cstring>

#include "captures/linux_lapd.h"
#include "io/byte_order.h"

namespace {

// In this machine's byte order, which the file's first number tells.
template <typename Piece>
char* put(char* at, const Piece& piece) {
    std::memcpy(at, piece.data(), piece.size() * sizeof piece[0]);
    return at + piece.size() * sizeof piece[0];
}

std::array<std::uint8_t, LINUX_LAPD_HEADER_SIZE> lapd_header(const Frame& frame) {
    std::array<std::uint8_t, LINUX_LAPD_HEADER_SIZE> header{};
    const std::span<std::uint8_t> octets(header);
    header[1] = frame.transmitted ? PACKET_OUTGOING : PACKET_INCOMING;
    set_high_octet_first(octets.subspan(2, 2), ARPHRD_LAPD);
    header[5] = 2;
    header[7] = frame.line;
    set_high_octet_first(octets.subspan(14, 2), LAPD_PROTOCOL);
    return header;
}

}  // namespace

PcapWriter::PcapWriter(OutputStream& capture) : capture_(capture) {
    constexpr std::uint32_t MAGIC = 0xA1B2C3D4;  // times in microseconds
    constexpr auto VERSION_2_4 = std::bit_cast<std::uint32_t>(std::array<std::uint16_t, 2>{2, 4});
    constexpr std::uint32_t SNAP_LENGTH = 65535;
    constexpr std::array<std::uint32_t, 6> HEADER{MAGIC, VERSION_2_4, 0, 0, SNAP_LENGTH, LINUX_LAPD_LINK_TYPE};
    capture_.filled(put(capture_.room(), HEADER));
}

void PcapWriter::write(const Frame& frame) {
    const auto seconds = static_cast<std::uint32_t>(seconds_of(frame.when));
    const auto size = static_cast<std::uint32_t>(LINUX_LAPD_HEADER_SIZE + frame.octets.size());
    const std::array<std::uint32_t, 4> packet{seconds, microseconds_of(frame.when), size, size};
    capture_.filled(put(put(put(capture_.room(), packet), lapd_header(frame)), frame.octets));
}
