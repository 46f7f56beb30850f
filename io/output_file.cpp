#include "io/output_file.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "io/file_access.h"

namespace {

constexpr int MOST_TRIES = 100;  // to lock a file before somebody removes it

bool has_access_control_list(int descriptor) {
    return ::fgetxattr(descriptor, "system.posix_acl_access", nullptr, 0) > 0;
}

mode_t file_creation_mask() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return mask;
}

// Gives permissions on a new file to its group and to others; so far only the owner has any. If the source belongs to
// another group, the group of the new file gets only what others have on the source.
void widen_permissions(int descriptor, int source) {
    struct stat like {};
    struct stat created {};
    if (has_access_control_list(source) || has_access_control_list(descriptor) || ::fstat(descriptor, &created) != 0) {
        return;
    }
    mode_t mode = 0666;
    if (::fstat(source, &like) == 0 && S_ISREG(like.st_mode)) {
        const mode_t others = like.st_mode & 0006U;
        const mode_t group = created.st_gid == like.st_gid ? like.st_mode & 0060U : others << 3U;
        mode = 0600 | group | others;
    }
    ::fchmod(descriptor, mode & ~file_creation_mask());
}

int open_for_writing(const char* name, int flags, int source) {
    constexpr mode_t OWNER_ALONE = 0600;
    flags |= O_CREAT;
    const int created = ::open(name, flags | O_EXCL | O_CLOEXEC, OWNER_ALONE);
    if (created >= 0) {
        widen_permissions(created, source);
        return created;
    }
    const int descriptor = open_without_waiting(name, flags, OWNER_ALONE);
    // Only opening must not block. Writing may: into a pipe, it waits for the reader.
    if (descriptor >= 0 && ::fcntl(descriptor, F_SETFL, 0) != 0) {
        ::close(descriptor);
        return -1;
    }
    return descriptor;
}

// Whether standard output or standard error goes to that file.
bool is_terminal_text(int descriptor) {
    return is_regular_file(descriptor) &&
           (same_file(descriptor, STDOUT_FILENO) || same_file(descriptor, STDERR_FILENO));
}

enum class Lock { HELD, BUSY, DEADLOCK };

// Asks for a lock on the whole file. The command is F_SETLK, or F_SETLKW to wait for the lock. A process loses the lock
// when it closes any descriptor of the file.
Lock set_lock(int descriptor, int command) {
    struct flock whole {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    int result = 0;
    do {
        result = ::fcntl(descriptor, command, &whole);
    } while (result != 0 && errno == EINTR);
    if (result == 0) {
        return Lock::HELD;
    }
    switch (errno) {
        case EACCES:
        case EAGAIN: return Lock::BUSY;
        case EDEADLK: return Lock::DEADLOCK;
        default: return Lock::HELD;  // this file system has no locks
    }
}

// Locks a regular file against other runs. If it has to wait for one, it says so on standard error.
Lock wait_for_lock(int descriptor, const char* name) {
    if (!is_regular_file(descriptor) || set_lock(descriptor, F_SETLK) == Lock::HELD) {
        return Lock::HELD;
    }
    const std::string message = std::string("Waiting for another run to finish with ") + name + "\n";
    static_cast<void>(write_all(STDERR_FILENO, message.data(), message.size()));
    return set_lock(descriptor, F_SETLKW);
}

}  // namespace

int create_output(const char* name, int source, int flags, bool (*accepts)(int descriptor)) {
    for (int tries = 0; tries < MOST_TRIES; ++tries) {
        const int descriptor = open_for_writing(name, flags, source);
        if (descriptor < 0) {
            return -1;
        }
        if (same_file(descriptor, source) || is_terminal_text(descriptor) ||
            (accepts != nullptr && !accepts(descriptor))) {
            ::close(descriptor);
            return OUTPUT_REFUSED;
        }
        if (wait_for_lock(descriptor, name) != Lock::HELD) {
            ::close(descriptor);
            return -1;
        }
        if (!is_regular_file(descriptor) || has_name(descriptor, name)) {
            if (empty_file(descriptor)) {
                return descriptor;
            }
            ::close(descriptor);
            return -1;
        }
        ::close(descriptor);  // it was removed while this run waited
    }
    return -1;
}
