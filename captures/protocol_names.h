#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

// The protocol code for a word of the command line: a decimal number of 0 to 255, or a name like "net5".
std::optional<std::uint8_t> protocol_code(std::string_view word);
