#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Takes the value of the option -c, the number of a call in the list, 1 or more. Gives why it is wrong, empty when it
// is right.
std::string add_call_number(std::string_view text, std::vector<std::uint32_t>& calls);
