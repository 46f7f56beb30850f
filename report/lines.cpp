#include "report/lines.h"

#include <charconv>

void upper_hex(std::int32_t octet) { text({UPPER_HEX_PAIRS[static_cast<std::uint32_t>(octet) & 0xFFU].data(), 2}); }

void decimal(std::int32_t number) {
    std::array<char, 11> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text({digits.data(), static_cast<std::size_t>(end - digits.data())});
}
