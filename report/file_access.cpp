#include "report/file_access.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string>

namespace {

int close_and_fail(int descriptor) {
    ::close(descriptor);
    return -1;
}

bool is_regular_file(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

// What keeps opening from waiting. A regular file is opened without: under a lease it would be refused at once.
int never_waiting(const char* name) {
    struct stat status {};
    return ::stat(name, &status) == 0 && !S_ISREG(status.st_mode) ? O_NONBLOCK : 0;
}

bool is_file(int descriptor, const char* name) {
    struct stat open_file {};
    struct stat named_file {};
    return ::fstat(descriptor, &open_file) == 0 && ::stat(name, &named_file) == 0 &&
           open_file.st_dev == named_file.st_dev && open_file.st_ino == named_file.st_ino;
}

// The permissions of the open file `source` (all of them when it is none), but the owner can read and write.
mode_t permissions_like(int source) {
    struct stat like {};
    return ::fstat(source, &like) == 0 ? 0600 | (like.st_mode & 0066) : 0666;
}

// Takes from the group of a new file, where it is not that of the source, what others lack on the source.
void protect_from_group(int descriptor, int source) {
    struct stat like {};
    struct stat created {};
    if (::fstat(source, &like) == 0 && ::fstat(descriptor, &created) == 0 && created.st_gid != like.st_gid) {
        const mode_t group = (like.st_mode & 0006U) << 3U;
        ::fchmod(descriptor, created.st_mode & (0606 | group));
    }
}

}  // namespace

void prepare_streams() {
    for (int descriptor = 0; descriptor <= STDERR_FILENO; ++descriptor) {
        if (::fcntl(descriptor, F_GETFD) < 0) {
            ::open("/dev/null", O_RDWR);  // takes the lowest free number, this one
        }
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

int open_for_reading(const char* name) {
    if (is_fifo(name)) {
        return -1;
    }
    const int descriptor = ::open(name, O_RDONLY | O_CLOEXEC | never_waiting(name));
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

int open_for_writing(const char* name, int flags, int source) {
    flags |= O_CREAT | O_CLOEXEC;
    const mode_t mode = permissions_like(source);
    const int created = ::open(name, flags | O_EXCL, mode);
    if (created >= 0) {
        protect_from_group(created, source);
        return created;
    }
    const int descriptor = ::open(name, flags | never_waiting(name), mode);
    // Only opening must not wait; writing into a pipe waits for its reader.
    if (descriptor >= 0 && ::fcntl(descriptor, F_SETFL, 0) != 0) {
        return close_and_fail(descriptor);
    }
    return descriptor;
}

int create_output(const char* name, int source) {
    for (;;) {
        const int descriptor = open_for_writing(name, O_WRONLY, source);
        if (descriptor < 0) {
            return -1;
        }
        const bool is_terminal_text = same_file(descriptor, STDOUT_FILENO) || same_file(descriptor, STDERR_FILENO);
        if (same_file(descriptor, source) || (is_terminal_text && is_regular_file(descriptor))) {
            ::close(descriptor);
            return OUTPUT_REFUSED;
        }
        if (lock_file(descriptor, name)) {
            return empty_file(descriptor) ? descriptor : close_and_fail(descriptor);
        }
        ::close(descriptor);  // it was removed while this run waited
    }
}

bool lock_file(int descriptor, const char* name) {
    if (!is_regular_file(descriptor)) {
        return true;
    }
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        const std::string message = std::string("Waiting for another run to finish with ") + name + "\n";
        static_cast<void>(write_all(STDERR_FILENO, message.data(), message.size()));
        while (::flock(descriptor, LOCK_EX) != 0 && errno == EINTR) {
        }
    }
    return is_file(descriptor, name);
}

// A file that is empty already is left alone: truncating it would make the file system write all of it out at its
// close.
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
