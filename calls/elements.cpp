#include <algorithm>
#include <optional>
#include <utility>

#include "calls/layer3.h"
#include "calls/q850.h"
#include "io/hex_digits.h"

namespace {

using Contents = std::span<const std::uint8_t>;  // of an element, after its length octet

bool extended(std::uint8_t octet) { return (octet & 0x80) == 0; }

// The characters from that octet on.
std::string characters(Contents contents, std::size_t from) {
    const Contents octets = contents.subspan(std::min(from, contents.size()));
    return {octets.begin(), octets.end()};
}

// Calling party number (Q.931 section 4.5.10): octet 3, octet 3a when bit 8 of octet 3 is 0, digits.
std::string calling_party_number(Contents contents) {
    return characters(contents, !contents.empty() && extended(contents[0]) ? 2 : 1);
}

// Called party number (Q.931 section 4.5.8): octet 3, digits.
std::string called_party_number(Contents contents) { return characters(contents, 1); }

// Keypad facility (Q.931 section 4.5.18): characters of seven bits.
void add_keypad(std::string& digits, Contents contents) {
    for (const std::uint8_t octet : contents) {
        digits += static_cast<char>(octet & 0x7FU);
    }
}

void add_channel(std::string& channels, unsigned number) {
    channels += channels.empty() ? "" : ",";
    channels += std::to_string(number);
}

// Channel numbers; bit 8 is 1 in the last.
std::string channel_numbers(Contents octets) {
    std::string channels;
    for (const std::uint8_t octet : octets) {
        add_channel(channels, octet & 0x7FU);
    }
    return channels;
}

// A slot map has a bit a channel, the highest channel first; the lowest is 1 in a map of 24 channels, 0 in one of 32.
std::string mapped_channels(Contents map) {
    constexpr std::size_t MAP_24 = 3;
    constexpr std::size_t MAP_32 = 4;
    if (map.size() > MAP_32) {
        return {};
    }
    std::string channels;
    for (unsigned slot = 0; slot < 8 * map.size(); ++slot) {
        const std::uint8_t octet = map[map.size() - 1 - slot / 8];
        if (((octet >> (slot % 8)) & 1U) != 0) {
            add_channel(channels, map.size() == MAP_24 ? slot + 1 : slot);
        }
    }
    return channels;
}

// Channel identification (Q.931 section 4.5.13)
//   octet 3:   ext | interface identifier present 7 | primary rate 6 | ... | channel selection 2..1 (basic rate)
//   octet 3.1: ext | interface identifier 7..1, on to further octets while ext is 0
//   octet 3.2: ext | coding standard 7..6 | map 5 | type 4..1
//   octet 3.3: ext | channel number 7..1, on to further octets; or a slot map
void read_channel(Message& message, Contents contents) {
    message.interface.clear();
    Octets octets(contents);
    const std::uint8_t octet_3 = octets.next();
    for (bool more = (octet_3 & 0x40) != 0; more && !octets.empty();) {
        const std::uint8_t identifier = octets.next();
        message.interface.append(hex_pair(identifier & 0x7F), 2);
        more = extended(identifier);
    }
    if (message.interface.find_first_not_of('0') == std::string::npos) {
        message.interface.clear();  // interface 0 is the one that has the D channel, as without an identifier
    }
    if ((octet_3 & 0x20) == 0) {
        const unsigned selected = octet_3 & 0x03U;
        message.channel = selected == 1 ? "B1" : selected == 2 ? "B2" : "";
        return;
    }
    const std::uint8_t octet_3_2 = octets.next();
    const bool map = (octet_3_2 & 0x10) != 0;
    message.channel = map ? mapped_channels(octets.rest()) : channel_numbers(octets.rest());
}

Reason q850_reason(std::uint8_t value) {
    switch (value) {
        case 16:
        case 31: return Reason::NORMAL;
        case 17: return Reason::BUSY;
        case 18:
        case 19: return Reason::NO_ANSWER;
        case 21: return Reason::REJECTED;
        default: return Reason::FAILURE;
    }
}

// The causes of 1TR6 are its own: user access busy, no user responding, user busy, call rejected, cleared by the user.
Reason reason_1tr6(std::uint8_t value) {
    switch (value) {
        case 90: return Reason::NORMAL;
        case 33:
        case 59: return Reason::BUSY;
        case 58: return Reason::NO_ANSWER;
        case 62: return Reason::REJECTED;
        default: return Reason::FAILURE;
    }
}

// Cause of 1TR6: octet 3 with the value, octet 4 with the location. Without octets it is normal clearing.
std::optional<Cause> cause_1tr6(Octets octets) {
    if (octets.empty()) {
        return {};
    }
    const auto value = static_cast<std::uint8_t>(octets.next() & 0x7FU);
    const auto location = static_cast<std::uint8_t>(octets.next() & 0x0FU);
    return Cause{value, {}, octets.overrun() ? std::nullopt : std::optional(location), reason_1tr6(value)};
}

// Cause (Q.931 section 4.5.12)
//   octet 3:  ext | coding standard 7..6 | spare | location 4..1 (VN3, TPH1856: 3..1)
//   octet 3a: ext | recommendation 7..1
//   octet 4:  ext | cause value 7..1
std::optional<Cause> read_cause(Variant variant, Octets octets) {
    if (variant == PRI_1TR6) {
        return cause_1tr6(octets);
    }
    const std::uint8_t octet_3 = octets.next();
    if (extended(octet_3)) {
        octets.next();
    }
    const auto value = static_cast<std::uint8_t>(octets.next() & 0x7FU);
    if (octets.overrun()) {
        return {};
    }
    const bool three_bits = variant == PRI_VN3 || variant == PRI_TPH1856;
    const auto location = static_cast<std::uint8_t>(octet_3 & (three_bits ? 0x07U : 0x0FU));
    const bool q850 = (octet_3 & 0x60) == 0;
    return Cause{value, q850 ? cause_words(value) : "", location, q850 ? q850_reason(value) : Reason::FAILURE};
}

void read_element(Message& message, Variant variant, std::uint8_t identifier, Contents contents) {
    switch (identifier) {
        case 0x08:
            if (!message.cause) {
                message.cause = read_cause(variant, Octets(contents));
            }
            break;
        case 0x14:
            if (!contents.empty()) {
                message.call_state = static_cast<std::uint8_t>(contents[0] & 0x3FU);
            }
            break;
        case 0x18: read_channel(message, contents); break;
        case 0x2C: add_keypad(message.to, contents); break;
        case 0x6C:
            if (message.from.empty()) {
                message.from = calling_party_number(contents);
            }
            break;
        case 0x70: message.to += called_party_number(contents); break;
        case 0x79:
            if (!contents.empty()) {
                message.restart_class = static_cast<std::uint8_t>(contents[0] & 0x07U);
            }
            break;
        default: break;
    }
}

// The codeset of the elements of a message (Q.931 sections 4.5.2 to 4.5.4): identifiers 1001xxxx shift to codeset 3..1
// for the next element, or with bit 4 at 0 for all that follow, then to a higher one only.
class Codeset {
 public:
    // Whether it was a shift.
    bool shift(std::uint8_t identifier) {
        if ((identifier & 0xF0) != 0x90) {
            return false;
        }
        const unsigned codeset = identifier & 0x07U;
        next_.reset();
        if ((identifier & 0x08) != 0) {
            next_ = codeset;
        } else if (codeset > locked_) {
            locked_ = codeset;
        }
        return true;
    }

    // That of the next element.
    unsigned take() { return std::exchange(next_, std::nullopt).value_or(locked_); }

 private:
    unsigned locked_ = 0;
    std::optional<unsigned> next_;
};

}  // namespace

// Each element is an identifier of one octet, or from 00 to 7F an identifier, a length and so many octets.
void read_elements(Message& message, Variant variant, Octets& octets) {
    Codeset codeset;
    while (!octets.empty()) {
        const std::uint8_t identifier = octets.next();
        if (codeset.shift(identifier)) {
            continue;
        }
        const bool known_set = codeset.take() == 0;
        if ((identifier & 0x80) != 0) {
            continue;
        }
        const std::uint8_t length = octets.next();
        const Contents contents = octets.take(length);
        if (octets.overrun()) {
            break;
        }
        if (known_set) {
            read_element(message, variant, identifier, contents);
        }
    }
}
