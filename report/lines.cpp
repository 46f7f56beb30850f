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
