#include "tests/program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

Folder::Folder() {
    std::string name = std::filesystem::temp_directory_path() / "quandrix-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    root_ = name;
}

Folder::~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
}

void Folder::write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path(name), std::ios::binary) << bytes;
}

std::string Folder::read(const std::string& name) const { return contents(path(name)); }

int start(const Folder& folder, const std::vector<std::string>& arguments, const std::string& terminal) {
    std::vector<char*> argv{const_cast<char*>(PROGRAM)};
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    const int process = fork();
    if (process == 0) {
        const int output = open(folder.path(terminal).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        setenv("TZ", "UTC", 1);
        if (chdir(folder.path("").c_str()) == 0 && dup2(output, 1) == 1 && dup2(output, 2) == 2) {
            execv(PROGRAM, argv.data());
        }
        _exit(127);
    }
    return process;
}

Outcome finish(const Folder& folder, int process, const std::string& terminal) {
    int status = 0;
    waitpid(process, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status), folder.read(terminal)};
}

Outcome run(const Folder& folder, const std::vector<std::string>& arguments) {
    return finish(folder, start(folder, arguments));
}

namespace {

std::string decode(const std::string& body, int status, const std::vector<std::string>& arguments) {
    const Folder folder;
    folder.write("trace", ZERO_HEADER + body);
    const Outcome result = run(folder, arguments);
    EXPECT_EQ(result.status, status) << result.terminal;
    return folder.read("report");
}

}  // namespace

std::string decode_hex(const std::string& body, int status) { return decode(body, status, {"trace", "report", "-d"}); }

std::string decode_binary(const std::string& body) { return decode(body, 0, {"trace", "report"}); }

std::string contents(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string bytes_of(const std::string& hex) {
    std::istringstream stream(hex);
    std::string bytes;
    for (unsigned byte = 0; stream >> std::hex >> byte;) {
        bytes.push_back(static_cast<char>(byte));
    }
    return bytes;
}
