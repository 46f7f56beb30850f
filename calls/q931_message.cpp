#include <algorithm>
#include <array>

#include "calls/layer3.h"
#include "io/hex_digits.h"
#include "q931/message_names.h"

namespace {

constexpr std::uint8_t CALL_CONTROL = 0x08;
constexpr std::uint8_t CALL_CONTROL_1TR6 = 0x41;  // N1; N0, which is 0x40, holds no calls

// Octets in hexadecimal.
std::string hexadecimal(std::span<const std::uint8_t> octets) {
    std::string text;
    for (const std::uint8_t octet : octets) {
        text.append(hex_pair(octet), 2);
    }
    return text;
}

Step step_of(std::uint8_t type, std::uint8_t discriminator) {
    if (discriminator == CALL_CONTROL_1TR6) {
        switch (type) {
            case 0x63: return Step::STATUS;
            case 0x6D: return Step::INFORMATION;
            default: break;
        }
    }
    switch (type) {
        case 0x01: return Step::ALERTING;
        case 0x05: return Step::SETUP;
        case 0x07: return Step::CONNECT;
        case 0x0F: return Step::CONNECT_ACKNOWLEDGE;
        case 0x22: return Step::RESUME_REJECT;
        case 0x26: return Step::RESUME;
        case 0x2D: return Step::SUSPEND_ACKNOWLEDGE;
        case 0x2E: return Step::RESUME_ACKNOWLEDGE;
        case 0x45: return Step::DISCONNECT;
        case 0x46: return Step::RESTART;
        case 0x4D: return Step::RELEASE;
        case 0x5A: return Step::RELEASE_COMPLETE;
        case 0x64: return discriminator == CALL_CONTROL ? Step::REGISTER : Step::OTHER;
        case 0x75: return Step::STATUS_ENQUIRY;
        case 0x7B: return Step::INFORMATION;
        case 0x7D: return Step::STATUS;
        default: return Step::OTHER;
    }
}

std::string full_name(std::uint8_t type, bool maintenance) {
    const std::string_view name = maintenance ? maintenance_message_name(type) : message_name(type);
    return name.empty() ? std::string("Unknown Message Type: 0x").append(hex_pair(type), 2) : std::string(name);
}

bool is_null(std::span<const std::uint8_t> reference) {
    return std::ranges::all_of(reference, [](std::uint8_t octet) { return octet == 0; });
}

}  // namespace

// A message (Q.931 section 4)
//   octet 1: protocol discriminator
//   octet 2: 0000 | length of the call reference 4..1
//   call reference: flag 8, 0 from the side that gave it | value
//   message type
void read_q931_message(Message& message, Variant variant, Octets& octets) {
    const std::uint64_t content = hash_of(octets.rest());
    const std::uint8_t discriminator = octets.next();
    const std::uint8_t length = octets.next();
    const std::span<const std::uint8_t> given = octets.take(length);
    const std::uint8_t type = octets.next();
    if (octets.overrun() || length > 0x0F) {
        message.damaged = true;
        return;
    }
    const bool flag_bit = length != 0 && (given[0] & 0x80) != 0;
    std::array<std::uint8_t, 0x0F> octets_of_value{};
    std::ranges::copy(given, octets_of_value.begin());
    octets_of_value[0] &= 0x7FU;
    const std::span<const std::uint8_t> reference(octets_of_value.data(), length);

    message.is_message = true;
    message.content = content;
    message.reference = hexadecimal(reference);
    message.by_sender = length != 0 && !flag_bit;
    const bool call_control = discriminator == CALL_CONTROL || discriminator == CALL_CONTROL_1TR6;
    message.of_call = call_control && !is_null(reference);
    message.step = call_control ? step_of(type, discriminator) : Step::OTHER;
    message.name = full_name(type, is_maintenance(discriminator));
    read_elements(message, variant, octets);
}
