#include "tests/program.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

Folder::Folder() {
    std::string name = std::filesystem::temp_directory_path() / "quandrix-XXXXXX";
    root_ = mkdtemp(name.data()) != nullptr ? name : throw std::runtime_error("no temporary folder");
}

void Folder::write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path(name), std::ios::binary) << bytes;
}

std::string Folder::read(const std::string& name) const { return contents(path(name)); }

Outcome Folder::run(const std::string& commands) const {
    write("commands", "cd " + root_.string() + "\nexport TZ=UTC\nQUANDRIX() { " PROGRAM " \"$@\"; }\n" + commands);
    const int status =
        std::system(("sh " + path("commands").string() + " >" + path("terminal").string() + " 2>&1").c_str());
    return {WEXITSTATUS(status), read("terminal")};
}

namespace {

std::string decode(const std::string& trace, int status, const std::string& option) {
    const Folder folder;
    folder.write("trace", trace);
    const Outcome outcome = folder.run("QUANDRIX trace report" + option);
    EXPECT_EQ(outcome.status, status) << outcome.terminal;
    return folder.read("report");
}

}  // namespace

std::string decode_hex(const std::string& body, int status, const std::string& header) {
    return decode(header + body, status, " -d");
}

std::string decode_binary(const std::string& body) { return decode(ZERO_HEADER + body, 0, ""); }

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
