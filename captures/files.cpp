#include "captures/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string>
#include <string_view>

#include "captures/messages.h"
#include "report/file_access.h"

namespace {

bool is_standard(const char* name) { return std::string_view(name) == "-"; }

}  // namespace

void ignore_write_signals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

int open_source(const char* name) {
    const int descriptor = is_standard(name) ? STDIN_FILENO : ::open(name, O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        fail_with_reason(std::string("cannot open ") + name);
    }
    return descriptor;
}

void create_target(OutputStream& target, const char* name, int source) {
    errno = 0;
    const int descriptor = is_standard(name) ? STDOUT_FILENO : create_output(name, source);
    if (descriptor < 0 && errno != 0) {
        fail_with_reason(std::string("cannot write ") + name);
    }
    if (descriptor < 0) {
        fail(std::string("cannot write ") + name + ": it is the file that is read");
    }
    target.attach(descriptor, name);
}

void close_target(OutputStream& target) {
    if (!target.close()) {
        fail(std::string("could not write all of ") + target.name());
    }
}
