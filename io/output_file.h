#pragma once

#include <fcntl.h>

// What create_output() returns, instead of a descriptor, for a file that must not be overwritten.
constexpr int OUTPUT_REFUSED = -2;

// Opens a file for writing with open()'s flags, locks it and truncates it. Returns its descriptor, or
//   OUTPUT_REFUSED  the file must not be overwritten, and is left as it was: it is open as `source`, standard output or
//                   standard error goes to it, or `accepts` does not accept it
//   -1              the file cannot be used; also a FIFO that nobody reads, and a file whose lock would be a deadlock
//
// The lock of a regular file:
// - While another run has the file locked, this run waits and says so on standard error.
// - The lock lasts as long as the file is open.
// - A file system that has no locks gives none.
//
// The permissions of a new file:
// - If the source is a regular file, group and others get no permission that they lack on the source.
// - If the source or the new file has an access control list, only the owner gets permissions.
int create_output(const char* name, int source, int flags = O_WRONLY, bool (*accepts)(int descriptor) = nullptr);
