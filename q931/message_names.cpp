#include "q931/message_names.h"

// Message types (Q.931 section 4.4).
std::string_view message_name(std::int32_t type) {
    switch (type) {
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

std::string_view maintenance_message_name(std::int32_t type) {
    switch (type) {
        case 0x07: return "SERVICE ACKNOWLEDGE";
        case 0x0F: return "SERVICE";
        default: return {};
    }
}

bool is_maintenance(std::int32_t discriminator) { return discriminator == 0x03 || discriminator == 0x43; }
