#pragma once

#include <cstdint>
#include <string_view>

// The names of message types (0..255), empty for an unknown type. Messages with a maintenance protocol discriminator
// have names of their own.
std::string_view message_name(std::int32_t type);
std::string_view maintenance_message_name(std::int32_t type);
bool is_maintenance(std::int32_t discriminator);
