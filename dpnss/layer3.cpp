#include "dpnss/layer3.h"

#include <algorithm>
#include <iterator>

#include "dpnss/fields.h"
#include "report/lines.h"
#include "report/state.h"
#include "trace/trace_reader.h"

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

// Two spellings of the same text: up to octet 0x21, and from 0x24 on.
constexpr Message RESERVED_TO_21 = {"RESERVED"};
constexpr Message RESERVED_FROM_24 = {"Reserved"};

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
