#pragma once

#include <fcntl.h>

// What create_output() gives instead of a descriptor for a file that must not be overwritten.
constexpr int OUTPUT_REFUSED = -2;

// Opens a file for writing with open()'s flags, waits until no other run has it locked, and empties it; it stays locked
// as long as it is open. A missing one is created: group and others get no permission on it that they lack on the open
// file `source`, if that is a regular file. OUTPUT_REFUSED, the file as it was, when it is the source, a regular file
// that is standard output or standard error, or one that `accepts` does not accept; -1 when it cannot be used, and when
// waiting for it would be waiting for each other. A FIFO that nobody reads cannot be used. On a file system without
// locks the run goes on.
int create_output(const char* name, int source, int flags = O_WRONLY, bool (*accepts)(int descriptor) = nullptr);
