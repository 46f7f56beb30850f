#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// Numbers of several octets (at most 8), low octet first or high octet first.

constexpr std::uint64_t low_octet_first(std::span<const std::uint8_t> octets) {
    std::uint64_t number = 0;
    for (std::size_t i = octets.size(); i-- > 0;) {
        number = number << 8U | octets[i];
    }
    return number;
}

constexpr std::uint64_t high_octet_first(std::span<const std::uint8_t> octets) {
    std::uint64_t number = 0;
    for (const std::uint8_t octet : octets) {
        number = number << 8U | octet;
    }
    return number;
}

// Write a number into the octets. If it needs more octets than there are, its high octets are dropped.
constexpr void set_low_octet_first(std::span<std::uint8_t> octets, std::uint64_t number) {
    for (std::uint8_t& octet : octets) {
        octet = static_cast<std::uint8_t>(number);
        number >>= 8U;
    }
}

constexpr void set_high_octet_first(std::span<std::uint8_t> octets, std::uint64_t number) {
    for (std::size_t i = octets.size(); i-- > 0; number >>= 8U) {
        octets[i] = static_cast<std::uint8_t>(number);
    }
}
