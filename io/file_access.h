#pragma once

#include <cstddef>

// To be called before any file is opened: puts a device in the place of a standard stream that is closed, so that no
// other file is taken for it, and makes a file that cannot be written on (nobody reads the pipe, the file may not grow)
// an error like any other.
void prepare_streams();

// Opens a file without waiting, but for the end of another process's lease on it. -1 when that fails.
int open_without_waiting(const char* name, int flags, unsigned mode);

// Opens a file for reading. -1 when that fails, for a folder, and for a FIFO, which is not touched: closing it would
// end its writer.
int open_for_reading(const char* name);

// Whether the file of that name is a FIFO.
bool is_fifo(const char* name);

// Empties an open regular file; anything else (a terminal, a pipe) is left as it is. False when that fails.
[[nodiscard]] bool empty_file(int descriptor);

// Whether two open files are the same one; false when one is not open.
bool same_file(int descriptor, int other);

// Whether an open file is a regular one, and whether it has that name, or one and no other.
bool is_regular_file(int descriptor);
bool has_name(int descriptor, const char* name);
bool has_one_name(int descriptor);

// Writes all `size` bytes to the descriptor, however many calls that takes. False when the system refuses one.
[[nodiscard]] bool write_all(int descriptor, const char* data, std::size_t size);
