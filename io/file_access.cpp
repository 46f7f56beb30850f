#include "io/file_access.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace {

int close_and_fail(int descriptor) {
    ::close(descriptor);
    return -1;
}

}  // namespace

void prepare_streams() {
    for (int descriptor = 0; descriptor <= STDERR_FILENO; ++descriptor) {
        if (::fcntl(descriptor, F_GETFD) < 0) {
            // open() takes the lowest free number, which is this one. Writing to /dev/full fails, so that a report
            // which goes there is not lost without a message.
            ::open(descriptor == STDIN_FILENO ? "/dev/null" : "/dev/full", O_RDWR);
        }
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

int open_without_waiting(const char* name, int flags, unsigned mode) {
    const int descriptor = ::open(name, flags | O_NONBLOCK | O_CLOEXEC, mode);
    return descriptor >= 0 || errno != EWOULDBLOCK ? descriptor : ::open(name, flags | O_CLOEXEC, mode);
}

int open_for_reading(const char* name) {
    if (is_fifo(name)) {
        return -1;
    }
    const int descriptor = open_without_waiting(name, O_RDONLY, 0);
    struct stat status {};
    if (descriptor >= 0 && (::fstat(descriptor, &status) != 0 || S_ISDIR(status.st_mode))) {
        return close_and_fail(descriptor);
    }
    return descriptor;
}

bool is_fifo(const char* name) {
    struct stat status {};
    return ::stat(name, &status) == 0 && S_ISFIFO(status.st_mode);
}

// An empty file is not truncated: after a truncation the file system writes the whole file to disk when it is closed.
bool empty_file(int descriptor) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) {
        return false;
    }
    return !S_ISREG(status.st_mode) || status.st_size == 0 ||
           (::ftruncate(descriptor, 0) == 0 && ::lseek(descriptor, 0, SEEK_SET) == 0);
}

bool same_file(int descriptor, int other) {
    struct stat first {};
    struct stat second {};
    return ::fstat(descriptor, &first) == 0 && ::fstat(other, &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

bool is_regular_file(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool has_name(int descriptor, const char* name) {
    struct stat open_file {};
    struct stat named_file {};
    return ::fstat(descriptor, &open_file) == 0 && ::stat(name, &named_file) == 0 &&
           open_file.st_dev == named_file.st_dev && open_file.st_ino == named_file.st_ino;
}

bool has_one_name(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink <= 1;
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
