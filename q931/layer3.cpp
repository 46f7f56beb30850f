#include "q931/layer3.h"

#include "q931/codeset.h"
#include "q931/ie_dispatch.h"
#include "report/lines.h"
#include "report/state.h"
#include "trace/trace_reader.h"

namespace {

// First octet of the call reference value: bit 8 tells which side it was given by.
void call_reference_flag() {
    octet();
    text((value & 0x80) != 0 ? "Orig=1" : "Dest=0");
    value_text("   CR=0x", value, "");
}

// Call reference (Q.931 section 4.3). A length other than 1 or 2 takes two octets and shows nothing.
void call_reference() {
    input();
    switch (value) {
        case 1: call_reference_flag(); return text("\n");
        case 2:
            call_reference_flag();
            input();
            return value_text("", value, "\n");
        default: input(); input();
    }
}

// Name of a message type (Q.931 section 4.4), empty for an unknown one.
std::string_view message_name() {
    switch (value) {
        case 0x01: return "ALERTING";
        case 0x02: return "CALL PROCEEDING";
        case 0x03: return "CALL PROGRESS";
        case 0x05: return "SETUP";
        case 0x07: return "CALL CONNECT";
        case 0x0D: return "SETUP_ACK";
        case 0x0F: return "CALL CONNECT ACKNOWLEDGE";
        case 0x20: return "USER INFORMATION";
        case 0x45: return "CALL DISCONNECT";
        case 0x46: return "RESTART";
        case 0x4D: return "RELEASE";
        case 0x4E: return "RESTART ACKNOWLEDGE";
        case 0x5A: return "RELEASE COMPLETE";
        case 0x62: return "CALL FACILITY";
        case 0x64: return "REGISTER";
        case 0x6A: return "CALL FACILITY ACKNOWLEDGE";
        case 0x6E: return "NOTIFY";
        case 0x72: return "CALL FACILITY REJECT";
        case 0x75: return "STATUS EQUIRY";
        case 0x79: return "CONGESTION CONTROL";
        case 0x7B: return "INFORMATION";
        case 0x7D: return "STATUS";
        default: return {};
    }
}

// Message types of the maintenance protocol discriminators. Any other value prints nothing: the line stays open.
void maintenance_message() {
    if (value == 0x0F) {
        named_octet("SERVICE");
    } else if (value == 0x07) {
        named_octet("SERVICE ACKNOWLEDGE");
    }
}

void message_type() {
    octet();
    if (prtcol_discr == 0x03 || prtcol_discr == 0x43) {
        return maintenance_message();
    }
    const std::string_view name = message_name();
    if (name.empty()) {
        value_text("Unknown Message Type: 0x", value, "\n");
    } else {
        named_octet(name);
    }
}

}  // namespace

void layer_3() {
    input();
    prtcol_discr = value;
    call_reference();
    message_type();
    Lock_shift = 0;
    if (msglen == 0) {
        return;
    }
    // One element is decoded even when the header has run past the record.
    do {
        if (Lock_shift != 0) {
            ie_codeset6();
        } else {
            ie_id();
        }
    } while (msglen > 0);
}
