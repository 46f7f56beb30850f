#include "captures/pcap_reader.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>

#include "captures/linux_lapd.h"
#include "io/byte_order.h"
#include "io/diagnostics.h"

namespace {

// The rest of the stream as a file of stdio, which libpcap reads from.
std::FILE* file_of(InputStream& stream) {
    const cookie_io_functions_t functions{.read = [](void* cookie, char* buffer, std::size_t size) -> ssize_t {
                                              const auto octets = static_cast<InputStream*>(cookie)->piece(size);
                                              std::ranges::copy(octets, buffer);
                                              return static_cast<ssize_t>(octets.size());
                                          },
                                          .write = nullptr,
                                          .seek = nullptr,
                                          .close = nullptr};
    return ::fopencookie(&stream, "r", functions);
}

std::string link_type_name(int link_type) {
    const char* const name = pcap_datalink_val_to_name(link_type);
    return name != nullptr ? name : std::to_string(link_type);
}

// Whether a frame is a response (Q.921 section 3.6): of the supervisory and unnumbered ones, all but the commands.
bool is_response(std::span<const std::uint8_t> octets) {
    constexpr std::uint8_t POLL_FINAL = 0x10;
    constexpr std::array<std::uint8_t, 4> COMMANDS{0x6F, 0x43, 0x03, 0xAF};  // SABME, DISC, UI, XID
    if (octets.size() < 3 || (octets[2] & 1U) == 0) {
        return false;
    }
    const auto control = static_cast<std::uint8_t>(octets[2] & ~POLL_FINAL);
    return std::ranges::find(COMMANDS, control) == COMMANDS.end();
}

// A frame without a header. The user side sends commands with a C/R bit of 0 and responses with 1.
void read_lapd(std::span<const std::uint8_t> octets, Packet& packet) {
    const bool bit = !octets.empty() && (octets[0] & 2U) != 0;
    packet.frame.transmitted = bit == is_response(octets);
    packet.frame.octets = octets;
}

void read_linux_lapd(std::span<const std::uint8_t> octets, Packet& packet) {
    if (octets.size() < LINUX_LAPD_HEADER_SIZE || high_octet_first(octets.subspan(14, 2)) != LAPD_PROTOCOL ||
        (octets[1] != PACKET_INCOMING && octets[1] != PACKET_OUTGOING)) {
        packet.trouble = "no LAPD frame";
        return;
    }
    const bool network_side = octets[6] != 0;
    packet.frame.transmitted = (octets[1] == PACKET_OUTGOING) != network_side;
    packet.frame.line = octets[7];
    packet.frame.octets = octets.subspan(LINUX_LAPD_HEADER_SIZE);
}

}  // namespace

PcapReader::PcapReader(InputStream& stream, const char* name) {
    std::array<char, PCAP_ERRBUF_SIZE> error{};
    std::FILE* const file = file_of(stream);
    pcap_.reset(file != nullptr ? pcap_fopen_offline(file, error.data()) : nullptr);
    if (!pcap_) {
        fail(std::string(name) + " is no capture: " + error.data());
    }
    link_type_ = pcap_datalink(pcap_.get());
    if (link_type_ != DLT_LINUX_LAPD && link_type_ != DLT_LAPD) {
        fail(std::string(name) + " holds no ISDN frames: its link type is " + link_type_name(link_type_));
    }
}

bool PcapReader::next(Packet& packet) {
    pcap_pkthdr* header = nullptr;
    const std::uint8_t* data = nullptr;
    const int result = ended_ ? PCAP_ERROR_BREAK : pcap_next_ex(pcap_.get(), &header, &data);
    if (result == PCAP_ERROR_BREAK) {
        return false;
    }
    packet = {.number = ++number_};
    if (result != 1) {
        ended_ = true;
        why_ended_ = std::string("from here on nothing can be read: ") + pcap_geterr(pcap_.get());
        packet.trouble = why_ended_.c_str();
        return true;
    }
    const std::span octets(data, header->caplen);
    if (link_type_ == DLT_LAPD) {
        read_lapd(octets, packet);
    } else {
        read_linux_lapd(octets, packet);
    }
    constexpr std::int64_t FAR_OFF = std::int64_t{1} << 40U;  // can be counted in microseconds
    set_time(packet, std::clamp<std::int64_t>(header->ts.tv_sec, -FAR_OFF, FAR_OFF), header->ts.tv_usec);
    packet.cut = header->caplen < header->len;
    return true;
}
