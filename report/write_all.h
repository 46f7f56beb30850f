#pragma once

#include <cstddef>

// Writes all `size` bytes to the descriptor, however many calls that takes. False when the system refuses one.
[[nodiscard]] bool write_all(int descriptor, const char* data, std::size_t size);
