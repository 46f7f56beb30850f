#pragma once

#include <cstddef>

// To be called before any file is opened.
// - Opens a device in place of each standard stream that is closed, so that no other file gets its number.
// - Ignores two signals, so that a write fails like any other where nobody reads the pipe or the file may not grow.
void prepare_streams();

// Opens a file without blocking. It waits only for another process to give up a lease on the file. -1 on failure.
int open_without_waiting(const char* name, int flags, unsigned mode);

// Opens a file for reading. -1 on failure, for a folder, and for a FIFO. A FIFO is not even opened: closing it again
// would end the process that writes into it.
int open_for_reading(const char* name);

// Whether the file of that name is a FIFO.
bool is_fifo(const char* name);

// Truncates an open regular file to no bytes. Anything else (a terminal, a pipe) is left as it is. False on failure.
[[nodiscard]] bool empty_file(int descriptor);

// Whether two descriptors are open on the same file; false when one is not open.
bool same_file(int descriptor, int other);

// Whether an open file is a regular one; whether that is one of its names; whether it is a regular one without a second
// name (hard link).
bool is_regular_file(int descriptor);
bool has_name(int descriptor, const char* name);
bool has_one_name(int descriptor);

// Writes all `size` bytes to the descriptor, in as many calls as that takes. False when one of them fails.
[[nodiscard]] bool write_all(int descriptor, const char* data, std::size_t size);
