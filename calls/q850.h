#pragma once

#include <cstdint>
#include <string_view>

// Words of Q.850, empty where it has none.
std::string_view cause_words(std::uint8_t cause);
std::string_view location_words(std::uint8_t location);
