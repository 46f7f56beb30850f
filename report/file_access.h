#pragma once

#include <cstddef>

// Opens a file for reading without waiting (a FIFO opens at once). -1 when that fails, and for a folder.
int open_for_reading(const char* name);

// Opens a file for writing and creates it when missing, without waiting (a FIFO that nobody reads fails) and without
// touching what it holds. -1 when that fails.
int open_for_writing(const char* name);

// Empties an open regular file; anything else (a terminal, a pipe) is left as it is. False when that fails.
[[nodiscard]] bool empty_file(int descriptor);

// Whether an open file is the one of that name, which may be a link to it.
bool is_file(int descriptor, const char* name);

// Whether an open file is a regular one.
bool is_regular_file(int descriptor);

// Writes all `size` bytes to the descriptor, however many calls that takes. False when the system refuses one.
[[nodiscard]] bool write_all(int descriptor, const char* data, std::size_t size);
