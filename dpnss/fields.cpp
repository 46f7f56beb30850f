#include "dpnss/fields.h"

#include "report/lines.h"
#include "report/state.h"
#include "trace/trace_reader.h"

namespace {

std::string_view maint_actionText(std::int32_t code) {
    switch (code) {
        case 0x01: return "Back Busy Control";
        case 0x02: return "Loop-Back Control";
        case 0x03: return "Loop-Back Abort";
        case 0x04: return "Traffic Channel Status Request ";  // with a blank at its end
        case 0x05: return "Acknowledge";
        case 0x06: return "Non-Looped-Back Test Control";
        default: return "Unknown Maintenance Action";
    }
}

std::string_view udc_controlText(std::int32_t code) {
    switch (code) {
        case 0x00: return "UUS supplementary service unavailable";
        case 0x01: return "ET temporarily unable to accept UUD/TSUs";
        case 0x02: return "ET is able to accept UUD/TSUs";
        case 0x03: return "Path not suitable for data";
        case 0x04: return "ET temporarily unable to accept SMs";
        case 0x05: return "ET able to accept SMs";
        case 0x06: return "Phase 1 NTE encountered";
        case 0x07: return "Invalid SIC";
        default: return "Unknown UDC Control Field";
    }
}

// A header ends with the four blanks that begin the next line. When transmitted, the indent comes after them.
void coded_field(std::string_view header, std::string_view (*code_text)(std::int32_t)) {
    octet();
    text(header);
    output(flag);
    value_text("0x", value, "  ");
    text(code_text(value));
    text("\n");
}

void character_field(std::string_view header) {
    if (msglen <= 0) {
        return;
    }
    line(header);
    output(flag);
    while (msglen > 0) {
        input();
        character(value);
    }
    text("\n");
}

}  // namespace

std::string_view ds2_CauseText(std::int32_t code) {
    switch (code) {
        case 0x00: return "Number Unobtainable";
        case 0x01: return "Address Incomplete";
        case 0x02: return "Network Termination";
        case 0x03: return "Service Unavailable";
        case 0x04: return "Subscriber Incompatible";
        case 0x05: return "Number Changed";
        case 0x06: return "Invalid Request";
        case 0x07: return "Network Busy";
        case 0x08: return "Number Busy";
        case 0x09: return "Line Out Of Service";
        case 0x0A: return "Incoming Calls Barred";
        case 0x0B: return "Outgoing Calls Barred";
        case 0x12: return "Remote Procedure Error";
        case 0x13: return "Service Incompatible";
        case 0x14: return "Acknowledgement";
        case 0x15: return "Signal Not Understood";
        case 0x16: return "Signal Not Valid";
        case 0x17: return "Service Temporarily Unavailable";
        case 0x18: return "Facility Not Registered";
        case 0x19: return "Reject";
        case 0x1A: return "Message Not Understood";
        case 0x1B: return "Signalling System Incompatible";
        case 0x1C: return "Route Out Of Service";
        case 0x1D: return "Transferred";
        case 0x1E: return "Network Address Extension Error";
        case 0x1F: return "No Reply";
        case 0x20: return "Service Termination";
        case 0x23: return "Channel Out Of Service";
        case 0x24: return "Forced Release";
        case 0x29: return "Access Barred";
        case 0x2D: return "DTE Controlled Not Ready";
        case 0x2E: return "DTE Uncontrolled Not Ready";
        case 0x30: return "Normal Clearing";
        case 0x32: return "Restricted Access";
        case 0x33: return "Local Procedure Error";
        default: return "Unknown Cause";
    }
}

// Service indicator code (BTNR 190)
//   octet 1: ext | type of information 7..5 | data rate 4..1; octet 2 follows when ext is 1
//   octet 2: ext | data identification 7..5 | duplex mode 4 | synchronous/asynchronous 3..1
void service_ind_code() {
    line("  Service Indicator Code\n");
    octet();
    const bool second_octet = (value & 0x80) != 0;
    extension_bit("  1:  1------- Extension Bit\n", "  1:  0------- Extension Bit\n");
    field(7, 5, " Type of Information\n");
    field(4, 1, " Speech/Data Rate\n");
    if (second_octet) {
        line("  Synch/Asynch Information\n");
        octet();
        text("  2:    0------- Extension Bit\n");
        field(7, 5, " Data Indentification\n");
        field(4, 4, " Duplex Mode\n");
        field(3, 1, " Synch/Asynch\n");
    }
}

void selection_field() { character_field("  Selection Field\n    "); }

void indication_field() { character_field("  Indication Field\n    "); }

void clear_rej_cause() { coded_field("  Clear/Reject Cause\n    ", ds2_CauseText); }

void maintenance_action() { coded_field("  Maintenance Action\n    ", maint_actionText); }

void udc_control_field() { coded_field("  UDC Control Field\n    ", udc_controlText); }
