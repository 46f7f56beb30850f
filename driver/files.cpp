#include "driver/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool same_file(const struct stat& one, int descriptor) {
    struct stat other {};
    return descriptor >= 0 && ::fstat(descriptor, &other) == 0 && one.st_dev == other.st_dev &&
           one.st_ino == other.st_ino;
}

int close_and_fail(int descriptor) {
    ::close(descriptor);
    return -1;
}

}  // namespace

int open_for_reading(const char* name) {
    const int descriptor = ::open(name, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat status {};
    if (descriptor >= 0 && (::fstat(descriptor, &status) != 0 || S_ISDIR(status.st_mode))) {
        return close_and_fail(descriptor);
    }
    return descriptor;
}

int open_for_writing(const char* name, std::initializer_list<int> keep) {
    const int descriptor = ::open(name, O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        return -1;
    }
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) {
        return close_and_fail(descriptor);
    }
    for (const int kept : keep) {
        if (same_file(status, kept)) {
            return close_and_fail(descriptor);
        }
    }
    // Only opening must not wait; writing into a pipe waits for its reader.
    if (::fcntl(descriptor, F_SETFL, O_WRONLY) != 0) {
        return close_and_fail(descriptor);
    }
    return descriptor;
}

bool empty_file(int descriptor) { return !is_regular_file(descriptor) || ::ftruncate(descriptor, 0) == 0; }

bool is_regular_file(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}
