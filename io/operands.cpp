#include "io/operands.h"

#include <fcntl.h>
#include <unistd.h>

#include <string>
#include <string_view>

#include "io/diagnostics.h"
#include "io/file_access.h"
#include "io/output_file.h"

namespace {

bool is_standard(const char* name) { return std::string_view(name) == "-"; }

// Standard output, unless it is the file that is read (the program would read what it writes), or the file that the
// messages go to.
int standard_output(int source) {
    const bool taken = same_file(STDOUT_FILENO, source) || same_file(STDOUT_FILENO, STDERR_FILENO);
    return taken && is_regular_file(STDOUT_FILENO) ? OUTPUT_REFUSED : STDOUT_FILENO;
}

}  // namespace

int open_operand(const char* name) {
    return is_standard(name) ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0) : ::open(name, O_RDONLY | O_CLOEXEC);
}

void open_source(InputStream& source, const char* name) {
    const int descriptor = open_operand(name);
    if (descriptor < 0) {
        fail_with_reason(std::string("cannot open ") + name);
    }
    source.open(descriptor, name);
}

void create_target(OutputStream& target, const char* name, int source) {
    const int descriptor = is_standard(name) ? standard_output(source) : create_output(name, source);
    if (descriptor == OUTPUT_REFUSED) {
        fail(std::string("cannot write ") + name +
             (is_standard(name) ? ": this run reads that file, or standard error goes to it too"
                                : ": this run reads it, or has it as standard output or error"));
    }
    if (descriptor < 0) {
        fail_with_reason(std::string("cannot write ") + name);
    }
    target.attach(descriptor, name);
}

void close_target(OutputStream& target) {
    if (!target.close()) {
        fail(std::string("could not write all of ") + target.name());
    }
}
