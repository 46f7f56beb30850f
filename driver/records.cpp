#include "driver/records.h"

#include <cstdint>

#include "driver/time_stamp.h"
#include "driver/trace/trace_reader.h"
#include "report/lines.h"
#include "report/state.h"

namespace {

// Reads the length byte, and in a basic-rate trace the line byte in front of it, which is not shown.
std::int32_t record_length() {
    if (BRItrace != 0) {
        input();
    }
    input();
    return value;
}

// Reads a little-endian number of the given width in bytes.
std::uint32_t little_endian(unsigned width) {
    std::uint32_t number = 0;
    for (unsigned shift = 0; shift < 8 * width; shift += 8) {
        input();
        number |= static_cast<std::uint32_t>(value) << shift;
    }
    return number;
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
    const std::uint32_t first = little_endian(2);
    const std::uint32_t second = little_endian(2);
    text("****** DEBUG MESSAGE (length:");
    decimal(length);
    text(")******\n  ");
    record_text(length);
    text(" 0x");  // the digits behind it are decimal all the same
    decimal(static_cast<std::int32_t>(first));
    text(" 0x");
    decimal(static_cast<std::int32_t>(second));
    text("\n");
    msglen = 0;
    debug_msg = 0;
}

void time_stamp_record() {
    static std::uint32_t tick_base = 0;  // tick count of the first time-stamp record
    const std::int32_t length = record_length() - 4;
    const std::uint32_t ticks = little_endian(4);
    if (First_Msg == 0) {
        tick_base = ticks;
    }
    record_text(length);
    Get_Real_Ticks(ticks - tick_base);
    msglen = 0;
    time_stamp_msg = 0;
}
