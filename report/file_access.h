#pragma once

#include <cstddef>

// To be called before any file is opened: gives a standard stream that is closed the null device, so that no other file
// is taken for it, and makes a file that cannot be written on (nobody reads the pipe, the file may not grow) an error
// like any other.
void prepare_streams();

// Opens a file for reading. -1 when that fails, for a folder, and for a FIFO, which is not touched: closing it would
// end its writer.
int open_for_reading(const char* name);

// Whether the file of that name is a FIFO.
bool is_fifo(const char* name);

// Opens a file for writing with open()'s flags, without touching what it holds, and creates it when missing: then group
// and others get no permission on it that they lack on the open file `source`. Never waits (a FIFO that nobody reads
// fails). -1 when that fails.
int open_for_writing(const char* name, int flags, int source);

// Opens a file for writing as above, waits until no other run has it locked, and empties it. OUTPUT_REFUSED, the file
// as it was, when it is the open file `source`, or a regular file that is standard output or standard error; -1 when it
// cannot be used. It is locked as long as it is open.
constexpr int OUTPUT_REFUSED = -2;
int create_output(const char* name, int source);

// Locks a regular file against other runs; one that has it locked is waited for, and standard error says so. False when
// the file no longer has that name afterwards. On a file system without locks the run goes on.
[[nodiscard]] bool lock_file(int descriptor, const char* name);

// Empties an open regular file; anything else (a terminal, a pipe) is left as it is. False when that fails.
[[nodiscard]] bool empty_file(int descriptor);

// Whether two open files are the same one; false when one is not open.
bool same_file(int descriptor, int other);

// Whether an open file is a regular one that has no second name.
bool has_one_name(int descriptor);

// Writes all `size` bytes to the descriptor, however many calls that takes. False when the system refuses one.
[[nodiscard]] bool write_all(int descriptor, const char* data, std::size_t size);
