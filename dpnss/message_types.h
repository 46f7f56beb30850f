#pragma once

#include <cstdint>
#include <string_view>

// The messages of DASS2 and DPNSS.

enum class Field : std::uint8_t {
    NONE,
    SERVICE_INDICATOR,  // one octet, two when bit 8 of the first is 1
    SELECTION,          // characters, all that remain
    INDICATION,         // characters, all that remain
    CAUSE,              // one octet
    MAINTENANCE,        // one octet
    USER_DATA_CONTROL,  // one octet
};

// A message: its name and the fields it carries, in their order.
struct MessageType {
    std::string_view name;
    Field first = Field::NONE;
    Field second = Field::NONE;
};

// What a message type octet (0..255) means on a DASS2 link in that direction, or on a DPNSS link in either.
const MessageType& message_type(std::int32_t octet, bool dass2, bool transmitted);
