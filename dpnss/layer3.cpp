#include "dpnss/layer3.h"

#include <algorithm>
#include <iterator>

#include "dpnss/fields.h"
#include "driver/trace_reader.h"
#include "report/lines.h"
#include "report/state.h"

namespace {

using FieldDecoder = void (*)();

constexpr FieldDecoder SIC = service_ind_code;
constexpr FieldDecoder SEL = selection_field;
constexpr FieldDecoder IND = indication_field;
constexpr FieldDecoder CAUSE = clear_rej_cause;
constexpr FieldDecoder MAINT = maintenance_action;
constexpr FieldDecoder UDC = udc_control_field;

// A message: its name and the fields it carries, in their order.
struct Message {
    std::string_view name;
    FieldDecoder first = nullptr;
    FieldDecoder second = nullptr;
};

// Two spellings of the same text, each in its own rows.
constexpr Message RESERVED = {"RESERVED"};
constexpr Message Reserved = {"Reserved"};

// What a message type means on a DASS2 link, received and transmitted, and on a DPNSS link in either direction.
struct MessageType {
    std::int32_t octet;
    Message dass2_received;
    Message dass2_transmitted;
    Message dpnss;
};

// clang-format off
constexpr MessageType MESSAGE_TYPES[] = {
    {0x00, {"Incoming Call Indication Msg-Complete", SIC, SEL},
           {"Initial Service Request Msg-Complete", SIC, SEL},
           {"Initial Service Request Msg-Complete", SIC, SEL}},
    {0x01, {"Incoming Call Indication Msg-Incomplete", SIC, SEL},
           {"Initial Service Request Msg-Incomplete", SIC, SEL},
           {"Initial Service Request Msg-Incomplete", SIC, SEL}},
    {0x02, RESERVED,
           {"Recall Msg-Complete", SIC, SEL},
           {"Recall Msg-Complete", SIC, SEL}},
    {0x03, RESERVED,
           {"Recall Msg-Incomplete", SIC, SEL},
           {"Recall Msg-Incomplete", SIC, SEL}},
    {0x04, {"Channel Seized Msg"},
           RESERVED,
           RESERVED},
    {0x05, {"Call Connected Msg", IND},
           {"Call Connected Msg", IND},
           {"Call Connected Msg", IND}},
    {0x06, {"Network Indication Msg", IND},
           RESERVED,
           {"Network Indication Msg", IND}},
    {0x07, {"Call Arrival Msg"},
           RESERVED,
           RESERVED},
    {0x08, {"Clear Indication Msg", CAUSE, IND},
           {"Clear Request Msg/Clear ConFirmation Msg", CAUSE, IND},
           {"Clear Indication Msg/Clear Request Msg", CAUSE, IND}},
    {0x09, {"Number Acknowledge Msg", IND},
           {"Call Accepted Msg", IND},
           {"Number Acknowledge Msg", IND}},
    {0x0A, {"Recall Rejection Msg", CAUSE, IND},
           RESERVED,
           {"Recall Rejection Msg", CAUSE, IND}},
    {0x0B, {"Subsequent Call Indication Msg-Incomplete", SEL},
           {"Subsequent Service Request Msg-Incomplete", SEL},
           {"Subsequent Service Request Msg-Incomplete", SEL}},
    {0x0C, {"Subsequent Call Indication Msg-Complete", SEL},
           {"Subsequent Service Request Msg-Complete", SEL},
           {"Subsequent Service Request Msg-Complete", SEL}},
    {0x0D, {"Send Service Request Msg"},
           RESERVED,
           RESERVED},
    {0x0E, {"Withold Service Request Msg"},
           {"Service Request Witheld Msg"},
           RESERVED},
    {0x20, {"Swap Msg", SIC},
           {"Swap Msg", SIC},
           RESERVED},
    {0x21, {"User Data Control Msg", UDC},
           RESERVED,
           RESERVED},
    {0x22, {"User-to-User Data Msg-Complete", IND},
           {"User-to-User Data Msg-Complete", IND},
           {"End-to-End Msg-Complete", IND}},
    {0x23, {"User-to-User Data Msg-Incomplete", IND},
           {"User-to-User Data Msg-Incomplete", IND},
           {"End-to-End Msg-Incomplete", IND}},
    {0x24, Reserved, Reserved, {"Single-Channel Clear Request Msg", CAUSE, IND}},
    {0x25, Reserved, Reserved, {"Single-Channel Clear Indication Msg", CAUSE, IND}},
    {0x26, Reserved, Reserved, {"End-to-End Recall Msg-Complete", SIC, SEL}},
    {0x27, Reserved, Reserved, {"End-to-End Recall Msg-Incomplete", SIC, SEL}},
    {0x40, Reserved, Reserved, {"Link-by-Link Msg-Complete", IND}},
    {0x41, Reserved, Reserved, {"Link-by-Link Msg-Incomplete", IND}},
    {0x42, Reserved, Reserved, {"Link-by-Link Reject Msg", CAUSE, IND}},
    {0x43, {"Maintenance Information Msg", SEL},
           {"Maintenance Information Msg", SEL},
           Reserved},
    {0x44, Reserved, Reserved, {"Swap Msg", SIC, IND}},
    {0x45, Reserved, Reserved, {"Link Maintenance Msg", MAINT, IND}},
    {0x46, Reserved, Reserved, {"Link Maintenance Reject Msg", CAUSE, IND}},
};
// clang-format on

constexpr Message UNKNOWN = {"Unknown Message Type"};

const Message& message(std::int32_t octet) {
    const auto* const row =
        std::find_if(std::begin(MESSAGE_TYPES), std::end(MESSAGE_TYPES),
                     [octet](const MessageType& message_type) { return message_type.octet == octet; });
    if (row == std::end(MESSAGE_TYPES)) {
        return UNKNOWN;
    }
    if (!variant_is(PRI_DASS2)) {
        return row->dpnss;
    }
    return flag == 1 ? row->dass2_received : row->dass2_transmitted;
}

}  // namespace

void ds2_layer3() {
    octet();
    const Message& decoded = message(value);
    named_octet(decoded.name);
    for (const FieldDecoder decode : {decoded.first, decoded.second}) {
        if (decode != nullptr) {
            decode();
        }
    }
}
