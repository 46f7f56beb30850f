#include "driver/frameless_records.h"

#include <array>
#include <cstdint>

#include "driver/time_stamp.h"
#include "io/byte_order.h"
#include "report/lines.h"
#include "report/state.h"
#include "trace/trace_reader.h"

namespace {

// Reads the length byte, and in a basic-rate trace the line byte before it, which is not shown.
std::int32_t record_length() {
    if (BRItrace != 0) {
        input();
    }
    input();
    return value;
}

// Reads a number of the given width in octets (at most 4), low octet first.
std::uint32_t read_number(unsigned width) {
    std::array<std::uint8_t, 4> octets{};
    for (unsigned i = 0; i < width; ++i) {
        input();
        octets[i] = static_cast<std::uint8_t>(value);
    }
    return static_cast<std::uint32_t>(low_octet_first(octets));
}

// Reads and writes that many characters; none when the count is below 0.
void record_text(std::int32_t length) {
    for (std::int32_t i = 0; i < length; ++i) {
        input();
        character(value);
    }
}

}  // namespace

void debug_record() {
    const std::int32_t length = record_length() - 4;
    const std::uint32_t first = read_number(2);
    const std::uint32_t second = read_number(2);
    text("****** DEBUG MESSAGE (length:");
    decimal(length);
    text(")******\n  ");
    record_text(length);
    text(" 0x");  // the digits after it are decimal nevertheless
    decimal(static_cast<std::int32_t>(first));
    text(" 0x");
    decimal(static_cast<std::int32_t>(second));
    text("\n");
    msglen = 0;
    debug_msg = 0;
}

void time_stamp_record() {
    const std::int32_t length = record_length() - 4;
    const std::uint32_t ticks = read_number(4);
    if (First_Msg == 0) {
        tick_base = ticks;
    }
    record_text(length);
    Get_Real_Ticks(ticks - tick_base);
    msglen = 0;
    time_stamp_msg = 0;
}
