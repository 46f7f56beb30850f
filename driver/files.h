#pragma once

#include <initializer_list>

// Opens a file for reading without waiting (a FIFO opens at once). -1 when that fails, and for a folder.
int open_for_reading(const char* name);

// Opens a file for writing and creates it when missing, without waiting and without touching what it holds: a FIFO
// that nobody reads fails. -1 when it cannot be opened, or when it is, under whatever name, one of the open files in
// `keep` (-1 there stands for no file).
int open_for_writing(const char* name, std::initializer_list<int> keep);

// Empties an open regular file; anything else (a terminal, a pipe) is left as it is. False when that fails.
[[nodiscard]] bool empty_file(int descriptor);

// Whether an open file is a regular one.
bool is_regular_file(int descriptor);
