#include "q931/element_lines.h"

void length_line() {
    octet();
    ielength = value;
    value_text("  2:           IE Length(0x", ielength, ")\n");
}

void value_lines(std::string_view before, std::int32_t mask, std::string_view after) {
    for (std::int32_t i = 0; i < ielength; ++i) {
        octet();
        value_text(before, value & mask, after);
    }
}

void numbered_lines(std::int32_t first, std::string_view label) {
    for (std::int32_t i = 0; i < ielength; ++i) {
        octet();
        text("  ");
        decimal(first + i);
        value_text(":      0x", value, label);
    }
}

void character_line(std::string_view label) {
    line("      ");
    for (std::int32_t i = 0; i < ielength; ++i) {
        input();
        character(value);
    }
    text(label);
}
