#include "report/lines.h"

#include <charconv>

void upper_hex(std::int32_t octet) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto bits = static_cast<std::uint32_t>(octet);
    character(digits[(bits >> 4U) & 0x0FU]);
    character(digits[bits & 0x0FU]);
}

void decimal(std::int32_t number) {
    std::array<char, 11> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

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
