#include "q931/layer3.h"

#include "q931/codeset.h"
#include "q931/ie_dispatch.h"
#include "q931/message_names.h"
#include "report/lines.h"
#include "report/state.h"
#include "trace/trace_reader.h"

namespace {

// First octet of the call reference value. Bit 8 is the flag: which side chose the value.
void call_reference_flag() {
    octet();
    text((value & 0x80) != 0 ? "Orig=1" : "Dest=0");
    value_text("   CR=0x", value, "");
}

// Call reference (Q.931 section 4.3). For a length other than 1 or 2, two octets are read and nothing is shown.
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

// Any other message type of the maintenance protocol prints nothing: the line stays open.
void maintenance_message() {
    const std::string_view name = maintenance_message_name(value);
    if (!name.empty()) {
        named_octet(name);
    }
}

void message_type() {
    octet();
    if (is_maintenance(prtcol_discr)) {
        return maintenance_message();
    }
    const std::string_view name = message_name(value);
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
    // Even when the header was read past the end of the record, one element is decoded.
    do {
        if (Lock_shift != 0) {
            ie_codeset6();
        } else {
            ie_id();
        }
    } while (msglen > 0);
}
