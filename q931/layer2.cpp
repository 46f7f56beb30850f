#include "q931/layer2.h"

#include "report/lines.h"
#include "report/state.h"
#include "trace/trace_reader.h"

namespace {

constexpr std::int32_t SAPI_MANAGEMENT = 63;
constexpr std::int32_t TEI_BROADCAST = 127;

// Control octet 1, then control octet 2 and the frame's name.
void two_octets(std::string_view name) {
    value_text("0x", value, " ");
    input();
    value_text("0x", value, name);
}

void one_octet(std::string_view name) { value_text("    0x", value, name); }

// TEI management (Q.921 section 5.3): entity identifier, reference number, message type, action indicator.
void tei_management() {
    octet();
    value_text("    0x", value, "  Layer ME ID\n");
    octet();
    value_text("    0x", value, "");
    input();
    value_text("", value, " Reference Number\n");
    octet();
    value_text("    0x", value, " Message ID\n");
    octet();
    value_text("    0x", value, " Action ID\n");
    sapi = 0;
    tei = 0;
}

void unnumbered_information() {
    one_octet("  Unnumbered Information\n");
    if (tei == TEI_BROADCAST && sapi == SAPI_MANAGEMENT) {
        tei_management();
    }
}

// Control field of supervisory and unnumbered frames, by all bits of control octet 1 (in `value`, its indent is
// written). Any other octet prints nothing: the next text continues its line.
void con_fld_com_rep() {
    switch (value) {
        case 0x01: return two_octets("  Receive Ready\n");
        case 0x05: return two_octets("  Receive Not Ready\n");
        case 0x09: return two_octets("  Reject\n");
        case 0x6F:
        case 0x7F: return one_octet("  Set Asynchronous Balanced Mode\n");
        case 0x0F:
        case 0x1F: return one_octet("  Disconnected Mode\n");
        case 0x03:
        case 0x13: return unnumbered_information();
        case 0x43:
        case 0x53: return one_octet("  Disconnect\n");
        case 0x63:
        case 0x73: return one_octet("  Unnumbered Acknowledgment\n");
        case 0x87:
        case 0x97: return one_octet("  Frame Reject\n");
        case 0xAF:
        case 0xBF: return one_octet("  Exchange Identification\n");
        default: return;
    }
}

// Writes the time stamp and direction lines. Reads the line byte (basic rate) and the length byte.
void direction(std::string_view name) {
    output(flag);
    text(cTimeStamp);  // a line of its own, or nothing: then the direction has two indents
    output(flag);
    if (BRItrace != 0) {
        inputData(dsl);
        text(name);
        text(" (");
        decimal(dsl);
        text(")\n");
    } else {
        text(name);
        text("\n");
    }
    inputData(msglen);
}

// Address octet 1: SAPI in bits 8..3, C/R in bit 2, seen from the user side.
void address_1(std::string_view when_1, std::string_view when_0) {
    octet();
    sapi = (value & 0xFC) >> 2;
    value_text((value & 0x02) != 0 ? when_1 : when_0, sapi, "\n");
}

// Address octet 2: TEI in bits 8..2.
void address_2() {
    octet();
    tei = (value & 0xFE) >> 1;
    value_text("TEI=0x", tei, "\n");
}

void control_field() {
    output(flag);  // here the indent comes before the octet
    input();
    if ((value & 0x01) == 0) {
        two_octets("  Information\n");
    } else {
        con_fld_com_rep();
    }
}

}  // namespace

void layer_2() {
    inputData(value);
    switch (value) {
        case RECEIVE_MARKER:
            flag = 1;
            direction("RECEIVE");
            address_1("Command=1   SAPI=0x", "Response=0    SAPI=0x");
            break;
        case TRANSMIT_MARKER:
            flag = 0;
            direction("TRANSMIT");
            address_1("Response=1   SAPI=0x", "Command=0    SAPI=0x");
            break;
        case DEBUG_MARKER: debug_msg = 1; return;
        case TIME_STAMP_MARKER: time_stamp_msg = 1; return;
        default:  // an octet that the previous frame left unread; length and direction of that frame stay
            value_text("Invalid Number: 0x", value, "\n");
            break;
    }
    address_2();
    control_field();
}
