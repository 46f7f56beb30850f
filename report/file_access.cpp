#include "report/file_access.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {

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

int open_for_writing(const char* name) {
    const int descriptor = ::open(name, O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0666);
    // Only opening must not wait; writing into a pipe waits for its reader.
    if (descriptor >= 0 && ::fcntl(descriptor, F_SETFL, O_WRONLY) != 0) {
        return close_and_fail(descriptor);
    }
    return descriptor;
}

// A file that is empty already is left alone: truncating it would make the file system write all of it out at its
// close.
bool empty_file(int descriptor) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) {
        return false;
    }
    return !S_ISREG(status.st_mode) || status.st_size == 0 || ::ftruncate(descriptor, 0) == 0;
}

bool is_file(int descriptor, const char* name) {
    struct stat open_file {};
    struct stat named_file {};
    return ::fstat(descriptor, &open_file) == 0 && ::stat(name, &named_file) == 0 &&
           open_file.st_dev == named_file.st_dev && open_file.st_ino == named_file.st_ino;
}

bool is_regular_file(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool write_all(int descriptor, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t written = ::write(descriptor, data, size);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}
