#pragma once

#include <fcntl.h>

// What create_output() gives instead of a descriptor for a file that must not be overwritten.
constexpr int OUTPUT_REFUSED = -2;

// Opens a file for writing with open()'s flags, locks it and empties it. Gives its descriptor, or
//   OUTPUT_REFUSED  it is the file open as `source`, the file that standard output or standard error goes to, or one
//                   that `accepts` does not accept; it stays as it was
//   -1              it cannot be used: also a FIFO that nobody reads, and a file whose lock would be a deadlock
//
// - While another run has the file locked this one waits, and says so on standard error. The lock lasts as long as the
//   file is open. On a file system without locks there is none.
// - A new file is as private as the source, if that is a regular file: its group and all others get no permission that
//   they lack on the source. If either of the two has an access control list, only the owner gets any.
int create_output(const char* name, int source, int flags = O_WRONLY, bool (*accepts)(int descriptor) = nullptr);
