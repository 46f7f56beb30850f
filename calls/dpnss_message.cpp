#include <algorithm>

#include "calls/layer3.h"
#include "dpnss/fields.h"
#include "dpnss/message_types.h"
#include "io/hex_digits.h"

namespace {

// The layer 2 frames (BTNR 188 section 3) in the words of the report.
std::string frame_name(std::uint8_t control, bool command) {
    const std::string information = command ? "UI(COMMAND)" : "UI(RESPONSE)";
    switch (control) {
        case 0x03: return information + " Sequence 0";
        case 0x13: return information + " Sequence 1";
        case 0x63: return "UA";
        case 0xEF: return "SABMR";
        default: return "Unknown Control Field";
    }
}

// Timeslot 8..2; bit 7 marks a virtual channel, and counts in the number all the same.
std::string timeslot_text(std::uint8_t octet) {
    const unsigned number = octet >> 1U;
    return (number < 10 ? "0" : "") + std::to_string(number) + ((octet & 0x40) != 0 ? "Virtual" : "");
}

// Messages that are reserved or unknown are named with their octet.
std::string full_name(std::string_view name, std::uint8_t type) {
    if (name.starts_with("Unknown") || name.starts_with("RESERVED") || name.starts_with("Reserved")) {
        return std::string(name).append("(0x").append(hex_pair(type), 2).append(")");
    }
    return std::string(name);
}

Step step_of(std::uint8_t type, bool dass2, bool transmitted) {
    switch (type) {
        case 0x00:
        case 0x01: return Step::SETUP;
        case 0x05: return Step::CONNECT;
        case 0x07: return dass2 && !transmitted ? Step::ALERTING : Step::OTHER;  // Call Arrival
        case 0x08: return Step::DISCONNECT;
        case 0x09: return dass2 && !transmitted ? Step::OTHER : Step::ALERTING;  // Call Accepted, or DPNSS
        case 0x0B:
        case 0x0C: return Step::INFORMATION;
        case 0x24:
        case 0x25: return dass2 ? Step::OTHER : Step::DISCONNECT;
        default: return Step::OTHER;
    }
}

Reason reason_of(std::uint8_t cause) {
    switch (cause) {
        case 0x08: return Reason::BUSY;
        case 0x14:
        case 0x30: return Reason::NORMAL;
        case 0x19: return Reason::REJECTED;
        case 0x1F: return Reason::NO_ANSWER;
        default: return Reason::FAILURE;
    }
}

void read_selection(Message& message, Octets& octets) {
    const std::span<const std::uint8_t> rest = octets.take(octets.rest().size());
    message.selection.assign(rest.begin(), rest.end());
    message.from = calling_number(message.selection);
    message.to = called_number(message.selection);
}

void read_field(Message& message, Field field, Octets& octets) {
    switch (field) {
        case Field::SERVICE_INDICATOR:
            if ((octets.next() & 0x80) != 0) {
                octets.next();
            }
            break;
        case Field::SELECTION: read_selection(message, octets); break;
        case Field::CAUSE: {
            const std::uint8_t cause = octets.next();
            if (!octets.overrun()) {
                message.cause = Cause{cause, ds2_CauseText(cause), std::nullopt, reason_of(cause)};
            }
            break;
        }
        case Field::MAINTENANCE:
        case Field::USER_DATA_CONTROL: octets.next(); break;
        case Field::INDICATION:
        case Field::NONE: break;
    }
}

}  // namespace

// A frame: address with command/response bit 2, timeslot, control; then message type and fields.
void read_dpnss_frame(Message& message, Variant variant, Octets& octets) {
    const std::uint64_t content = hash_of(octets.rest());
    const bool bit = (octets.next() & 0x02) != 0;
    const std::uint8_t timeslot = octets.next();
    const std::uint8_t control = octets.next();
    if (octets.overrun()) {
        message.name = "Incomplete Frame";
        return;
    }
    message.reference = timeslot_text(timeslot);
    const bool received = !message.transmitted;
    message.name = frame_name(control, variant == PRI_DPNSS_A ? received : bit == received);
    if ((control & 0xEF) != 0x03 || octets.empty()) {
        return;
    }
    const bool dass2 = variant == PRI_DASS2;
    const std::uint8_t octet = octets.next();
    const MessageType& type = message_type(octet, dass2, message.transmitted);
    message.is_message = true;
    message.send_number = static_cast<std::uint8_t>((control >> 4U) & 1U);
    message.content = content;
    message.of_call = type.name.find("Maintenance") == std::string_view::npos;
    message.step = message.of_call ? step_of(octet, dass2, message.transmitted) : Step::OTHER;
    message.name = full_name(type.name, octet);
    read_field(message, type.first, octets);
    read_field(message, type.second, octets);
}

// A string counts when its "#" is there. What precedes its "*" is digits of the number called.
std::string_view calling_number(std::string_view selection) {
    constexpr std::string_view CALLING = "*50*";
    for (std::size_t end = selection.find('#'); end != std::string_view::npos; end = selection.find('#')) {
        const std::string_view string = selection.substr(0, end);
        const std::string_view parameters = string.substr(std::min(string.find('*'), string.size()));
        if (parameters.starts_with(CALLING)) {
            return parameters.substr(CALLING.size());
        }
        selection.remove_prefix(end + 1);
    }
    return {};
}

// A string that does not end takes the rest.
std::string called_number(std::string_view selection) {
    std::string number;
    while (!selection.empty()) {
        const std::size_t string = selection.find('*');
        number += selection.substr(0, string);
        const std::size_t end = string == std::string_view::npos ? string : selection.find('#', string);
        selection.remove_prefix(end == std::string_view::npos ? selection.size() : end + 1);
    }
    return number;
}
