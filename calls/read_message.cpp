#include "calls/read_message.h"

#include <iterator>

#include "calls/layer3.h"
#include "calls/octets.h"

namespace {

constexpr std::uint8_t SAPI_MANAGEMENT = 63;
constexpr std::uint8_t TEI_BROADCAST = 127;

// Frames by control octet 1, but for information frames.
std::string_view frame_name(std::uint8_t control) {
    switch (control) {
        case 0x01: return "Receive Ready";
        case 0x05: return "Receive Not Ready";
        case 0x09: return "Reject";
        case 0x6F:
        case 0x7F: return "Set Asynchronous Balanced Mode";
        case 0x0F:
        case 0x1F: return "Disconnected Mode";
        case 0x03:
        case 0x13: return "Unnumbered Information";
        case 0x43:
        case 0x53: return "Disconnect";
        case 0x63:
        case 0x73: return "Unnumbered Acknowledgment";
        case 0x87:
        case 0x97: return "Frame Reject";
        case 0xAF:
        case 0xBF: return "Exchange Identification";
        default: return "Unknown Control Field";
    }
}

// TEI management (Q.921 section 5.3): entity identifier 0F, two octets of reference number, message type, action.
std::string_view tei_management_name(Octets& octets) {
    const std::uint8_t entity = octets.next();
    octets.take(2);
    const std::uint8_t type = octets.next();
    octets.next();
    constexpr std::string_view NAMES[] = {"Identity Request",       "Identity Assigned",       "Identity Denied",
                                          "Identity Check Request", "Identity Check Response", "Identity Remove",
                                          "Identity Verify"};
    const bool known = entity == 0x0F && type >= 1 && type <= std::size(NAMES) && !octets.overrun();
    return known ? NAMES[type - 1] : frame_name(0x03);
}

bool is_unnumbered_information(std::uint8_t control) { return (control & 0xEF) == 0x03; }

// A frame of Q.921
//   address: SAPI 8..3 | command/response 2, in commands 1 from the network | 0;  TEI 8..2 | 1
//   control: N(S) 8..2 | 0 and a second octet (I); a second octet (S); one octet (U)
void read_q921_frame(Message& message, const Frame& frame, Octets& octets) {
    const std::uint8_t address = octets.next();
    message.sapi = static_cast<std::uint8_t>(address >> 2U);
    message.tei = static_cast<std::uint8_t>(octets.next() >> 1U);
    message.from_network = (address & 0x02) != 0;
    const std::uint8_t control = octets.next();
    const bool information = (control & 0x01) == 0;
    if ((control & 0x03) != 0x03) {
        octets.next();
    }
    if (octets.overrun()) {
        message.name = "Incomplete Frame";
        return;
    }
    message.name = information ? "Information" : frame_name(control);
    message.establishes = (control & 0xEF) == 0x6F;
    if (information) {
        message.send_number = static_cast<std::uint8_t>(control >> 1U);
    }
    if (!information && !is_unnumbered_information(control)) {
        return;
    }
    if (message.sapi <= 1 && !octets.empty()) {
        read_q931_message(message, frame.variant, octets);
    } else if (!information && message.sapi == SAPI_MANAGEMENT && message.tei == TEI_BROADCAST) {
        message.name = tei_management_name(octets);
    }
}

}  // namespace

Message read_message(const Frame& frame) {
    Message message;
    message.transmitted = frame.transmitted;
    message.line = frame.line;
    message.elapsed = frame.elapsed;
    message.at = frame.at;
    Octets octets(frame.octets);
    if (is_dpnss(frame.variant)) {
        read_dpnss_frame(message, frame.variant, octets);
    } else {
        read_q921_frame(message, frame, octets);
    }
    message.damaged = message.damaged || octets.overrun();
    return message;
}
