#pragma once

#include <cstddef>
#include <cstdint>

// Link type 177 of captures, LINUX_LAPD: a header of 16 octets comes before every frame. Its numbers have the high
// octet first.
//
//   0  packet type: the low octet is 0 for an incoming frame, 4 for an outgoing one
//   2  ARPHRD type
//   4  length of the address
//   6  address: octet 0 not 0 when the capture was taken on the network side; octet 1 number of the line
//  14  protocol
constexpr std::uint16_t LINUX_LAPD_LINK_TYPE = 177;
constexpr std::size_t LINUX_LAPD_HEADER_SIZE = 16;

constexpr std::uint8_t PACKET_INCOMING = 0;
constexpr std::uint8_t PACKET_OUTGOING = 4;
constexpr std::uint16_t ARPHRD_LAPD = 8445;
constexpr std::uint16_t LAPD_PROTOCOL = 0x0030;
