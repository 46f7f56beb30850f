#include "dpnss/message_types.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr Field SIC = Field::SERVICE_INDICATOR;
constexpr Field SEL = Field::SELECTION;
constexpr Field IND = Field::INDICATION;
constexpr Field CAUSE = Field::CAUSE;
constexpr Field MAINT = Field::MAINTENANCE;
constexpr Field UDC = Field::USER_DATA_CONTROL;

// Two spellings of the same text: up to octet 0x21, and from 0x24 on.
constexpr MessageType RESERVED_TO_21 = {"RESERVED"};
constexpr MessageType RESERVED_FROM_24 = {"Reserved"};

// What a message type means on a DASS2 link, received and transmitted, and on a DPNSS link in either direction.
struct Row {
    std::int32_t octet;
    MessageType dass2_received;
    MessageType dass2_transmitted;
    MessageType dpnss;
};

// clang-format off
constexpr Row MESSAGE_TYPES[] = {
    {0x00, {"Incoming Call Indication Msg-Complete", SIC, SEL},
           {"Initial Service Request Msg-Complete", SIC, SEL},
           {"Initial Service Request Msg-Complete", SIC, SEL}},
    {0x01, {"Incoming Call Indication Msg-Incomplete", SIC, SEL},
           {"Initial Service Request Msg-Incomplete", SIC, SEL},
           {"Initial Service Request Msg-Incomplete", SIC, SEL}},
    {0x02, RESERVED_TO_21,
           {"Recall Msg-Complete", SIC, SEL},
           {"Recall Msg-Complete", SIC, SEL}},
    {0x03, RESERVED_TO_21,
           {"Recall Msg-Incomplete", SIC, SEL},
           {"Recall Msg-Incomplete", SIC, SEL}},
    {0x04, {"Channel Seized Msg"},
           RESERVED_TO_21,
           RESERVED_TO_21},
    {0x05, {"Call Connected Msg", IND},
           {"Call Connected Msg", IND},
           {"Call Connected Msg", IND}},
    {0x06, {"Network Indication Msg", IND},
           RESERVED_TO_21,
           {"Network Indication Msg", IND}},
    {0x07, {"Call Arrival Msg"},
           RESERVED_TO_21,
           RESERVED_TO_21},
    {0x08, {"Clear Indication Msg", CAUSE, IND},
           {"Clear Request Msg/Clear ConFirmation Msg", CAUSE, IND},
           {"Clear Indication Msg/Clear Request Msg", CAUSE, IND}},
    {0x09, {"Number Acknowledge Msg", IND},
           {"Call Accepted Msg", IND},
           {"Number Acknowledge Msg", IND}},
    {0x0A, {"Recall Rejection Msg", CAUSE, IND},
           RESERVED_TO_21,
           {"Recall Rejection Msg", CAUSE, IND}},
    {0x0B, {"Subsequent Call Indication Msg-Incomplete", SEL},
           {"Subsequent Service Request Msg-Incomplete", SEL},
           {"Subsequent Service Request Msg-Incomplete", SEL}},
    {0x0C, {"Subsequent Call Indication Msg-Complete", SEL},
           {"Subsequent Service Request Msg-Complete", SEL},
           {"Subsequent Service Request Msg-Complete", SEL}},
    {0x0D, {"Send Service Request Msg"},
           RESERVED_TO_21,
           RESERVED_TO_21},
    {0x0E, {"Withold Service Request Msg"},
           {"Service Request Witheld Msg"},
           RESERVED_TO_21},
    {0x20, {"Swap Msg", SIC},
           {"Swap Msg", SIC},
           RESERVED_TO_21},
    {0x21, {"User Data Control Msg", UDC},
           RESERVED_TO_21,
           RESERVED_TO_21},
    {0x22, {"User-to-User Data Msg-Complete", IND},
           {"User-to-User Data Msg-Complete", IND},
           {"End-to-End Msg-Complete", IND}},
    {0x23, {"User-to-User Data Msg-Incomplete", IND},
           {"User-to-User Data Msg-Incomplete", IND},
           {"End-to-End Msg-Incomplete", IND}},
    {0x24, RESERVED_FROM_24, RESERVED_FROM_24, {"Single-Channel Clear Request Msg", CAUSE, IND}},
    {0x25, RESERVED_FROM_24, RESERVED_FROM_24, {"Single-Channel Clear Indication Msg", CAUSE, IND}},
    {0x26, RESERVED_FROM_24, RESERVED_FROM_24, {"End-to-End Recall Msg-Complete", SIC, SEL}},
    {0x27, RESERVED_FROM_24, RESERVED_FROM_24, {"End-to-End Recall Msg-Incomplete", SIC, SEL}},
    {0x40, RESERVED_FROM_24, RESERVED_FROM_24, {"Link-by-Link Msg-Complete", IND}},
    {0x41, RESERVED_FROM_24, RESERVED_FROM_24, {"Link-by-Link Msg-Incomplete", IND}},
    {0x42, RESERVED_FROM_24, RESERVED_FROM_24, {"Link-by-Link Reject Msg", CAUSE, IND}},
    {0x43, {"Maintenance Information Msg", SEL},
           {"Maintenance Information Msg", SEL},
           RESERVED_FROM_24},
    {0x44, RESERVED_FROM_24, RESERVED_FROM_24, {"Swap Msg", SIC, IND}},
    {0x45, RESERVED_FROM_24, RESERVED_FROM_24, {"Link Maintenance Msg", MAINT, IND}},
    {0x46, RESERVED_FROM_24, RESERVED_FROM_24, {"Link Maintenance Reject Msg", CAUSE, IND}},
};
// clang-format on

constexpr MessageType UNKNOWN = {"Unknown Message Type"};

}  // namespace

const MessageType& message_type(std::int32_t octet, bool dass2, bool transmitted) {
    const auto* const row = std::ranges::find(MESSAGE_TYPES, octet, &Row::octet);
    if (row == std::end(MESSAGE_TYPES)) {
        return UNKNOWN;
    }
    if (!dass2) {
        return row->dpnss;
    }
    return transmitted ? row->dass2_transmitted : row->dass2_received;
}
