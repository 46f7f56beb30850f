#include "captures/pcapng_writer.h"

#include <bit>
#include <cstring>
#include <string>

#include "captures/linux_lapd.h"
#include "io/byte_order.h"

namespace {

// All numbers are in this machine's byte order. The section header tells which that is.
using Words = std::span<const std::uint32_t>;

constexpr std::uint32_t word_of(std::uint16_t first, std::uint16_t second) {
    return std::bit_cast<std::uint32_t>(std::array<std::uint16_t, 2>{first, second});
}

constexpr std::uint32_t padded(std::size_t size) { return static_cast<std::uint32_t>(size + 3) & ~3U; }

char* put(char* at, const void* bytes, std::size_t size) {
    std::memcpy(at, bytes, size);
    return at + size;
}

char* put(char* at, Words words) { return put(at, words.data(), words.size_bytes()); }

// Pads what has been put since `begin` to whole words.
char* put_padding(char* begin, char* at) {
    const auto size = static_cast<std::size_t>(at - begin);
    std::memset(at, 0, padded(size) - size);
    return begin + padded(size);
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

PcapngWriter::PcapngWriter(OutputStream& capture) : capture_(capture) {
    constexpr std::uint32_t SECTION_HEADER = 0x0A0D0D0A;
    constexpr std::uint32_t MAGIC = 0x1A2B3C4D;
    constexpr std::uint32_t SIZE = 28;
    constexpr std::uint32_t UNKNOWN = 0xFFFFFFFF;  // length of the section
    constexpr std::array<std::uint32_t, 7> HEADER{SECTION_HEADER, SIZE, MAGIC, word_of(1, 0), UNKNOWN, UNKNOWN, SIZE};
    capture_.filled(put(capture_.room(), HEADER));
}

// Some readers refuse a file without an interface.
PcapngWriter::~PcapngWriter() {
    if (interfaces_ == 0) {
        write_interface(0);
    }
}

// The number of the line's interface. They are numbered in the order in which they are written.
std::uint32_t PcapngWriter::interface_of(std::uint8_t line) {
    std::optional<std::uint32_t>& number = interface_of_line_[line];
    if (!number) {
        write_interface(line);
        number = interfaces_++;
    }
    return *number;
}

void PcapngWriter::write_interface(std::uint8_t line) {
    constexpr std::uint32_t INTERFACE_DESCRIPTION = 1;
    constexpr std::uint32_t NO_LIMIT = 0;  // of the octets of a packet
    constexpr std::uint16_t NAME = 2;
    constexpr std::uint32_t END_OF_OPTIONS = 0;
    const std::string name = "line " + std::to_string(line);
    const std::uint32_t size = 28 + padded(name.size());
    const std::uint32_t option = word_of(NAME, static_cast<std::uint16_t>(name.size()));
    char* const begin = capture_.room();
    char* at = put(begin, std::array{INTERFACE_DESCRIPTION, size, word_of(LINUX_LAPD_LINK_TYPE, 0), NO_LIMIT, option});
    at = put_padding(begin, put(at, name.data(), name.size()));
    capture_.filled(put(at, std::array{END_OF_OPTIONS, size}));
}

void PcapngWriter::write(const Frame& frame) {
    constexpr std::uint32_t ENHANCED_PACKET = 6;
    const std::uint32_t interface = interface_of(frame.line);
    const auto when = static_cast<std::uint64_t>(frame.when);
    const auto octets = static_cast<std::uint32_t>(LINUX_LAPD_HEADER_SIZE + frame.octets.size());
    const std::uint32_t size = 32 + padded(octets);
    char* const begin = capture_.room();
    char* at = put(begin, std::array{ENHANCED_PACKET, size, interface, static_cast<std::uint32_t>(when >> 32U),
                                     static_cast<std::uint32_t>(when), octets, octets});
    const auto header = lapd_header(frame);
    at = put(at, header.data(), header.size());
    at = put_padding(begin, put(at, frame.octets.data(), frame.octets.size()));
    capture_.filled(put(at, std::array{size}));
}
