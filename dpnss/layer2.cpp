#include "dpnss/layer2.h"

#include "report/lines.h"
#include "report/state.h"
#include "trace/trace_reader.h"

namespace {

// The first four bytes in hexadecimal, the others as characters.
void ds2_debug_record() {
    flag = 1;
    text("DEBUG: ");
    inputData(msglen);
    for (std::int32_t i = 0; msglen > 0; ++i) {
        input();
        if (i < 4) {
            upper_hex(value);
            text(" ");
        } else {
            character(value);
        }
    }
    text("\n");
}

[[noreturn]] void unknown_marker() {
    value_text("Invalid Tx/Rx value: 0x", value, "\n");
    abort_run(Abort::NO_RECORD);
}

// Whether a frame with that command/response bit is a command. At the DPNSS A-End all received frames are commands.
bool is_command(bool bit) {
    if (variant_is(PRI_DPNSS_A)) {
        return flag == 1;
    }
    return bit == (flag == 1);
}

// Octet 2: timeslot 8..2. Bit 7 marks a virtual channel, and is part of the number too.
void timeslot() {
    octet();
    const std::int32_t number = (value & 0xFE) >> 1;
    text("Timeslot ");
    if (number < 10) {
        text("0");
    }
    decimal(number);
    text((value & 0x40) != 0 ? "Virtual\n" : "\n");
}

void ui_frame(std::string_view sequence) {
    text(bCRflag == 1 ? "UI(COMMAND)" : "UI(RESPONSE)");
    value_text(sequence, value, ")\n");
}

void control_field() {
    output(flag);  // here the indent comes before the octet
    input();
    switch (value) {
        case 0x03: return ui_frame(" Sequence 0(0x");
        case 0x13: return ui_frame(" Sequence 1(0x");
        case 0x63: return value_text("UA (0x", value, ")\n");
        case 0xEF: return value_text("SABMR (0x", value, ")\n");
        default: return value_text("0x", value, "  Unknown Control Field\n");
    }
}

}  // namespace

void ds2_layer2() {
    inputData(value);
    switch (value) {
        case RECEIVE_MARKER:
            flag = 1;
            line("RECEIVE\n");
            break;
        case TRANSMIT_MARKER:
            flag = 0;
            line("TRANSMIT\n");
            break;
        case DEBUG_MARKER: return ds2_debug_record();
        default: unknown_marker();
    }
    inputData(msglen);
    input();
    bCRflag = is_command((value & 0x02) != 0) ? 1 : 0;
    timeslot();
    control_field();
}
