#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

// Ten zero bytes, the header of most test traces.
inline const std::string ZERO_HEADER(10, '\0');

// The transmit indent.
inline const std::string INDENT(39, ' ');

// The bytes of a text like "41 42".
inline std::string bytes_of(const std::string& hex) {
    std::istringstream stream(hex);
    std::string bytes;
    for (unsigned byte = 0; stream >> std::hex >> byte;) {
        bytes.push_back(static_cast<char>(byte));
    }
    return bytes;
}

// What the program prints on the terminal when it starts.
inline const std::string BANNER =
    "\nVelmarix ISDN Trace Utility\nOffline decoder of ISDN D-channel traces\nVersion 1.00-Alpha-0.10\n";

// The first line of a report, a frame in it, and the record of that frame.
inline const std::string PRI = "PROTOCOL TYPE                 : PRI 4ESS/5ESS\n";
inline const std::string FRAME = "RECEIVE\nCommand=1   SAPI=0x00\nTEI=0x00\n    0x63  Unnumbered Acknowledgment\n\n";
inline const std::string RECORD = "52 03 02 01 63 ";

// A text, so many times.
inline std::string repeated(const std::string& text, unsigned count) {
    std::string result;
    for (; count > 0; --count) {
        result += text;
    }
    return result;
}

// That record, many times, as a binary trace.
inline std::string frames(unsigned count) { return ZERO_HEADER + "\2\2" + repeated(bytes_of(RECORD), count); }

// A file's whole contents; an empty text when it is missing.
inline std::string contents(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// An empty folder that the program runs in, removed at the end.
class Folder {
 public:
    Folder() : root_(mkdtemp(std::string("/tmp/quandrix-XXXXXX").data())) {}
    ~Folder() { std::filesystem::remove_all(root_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    void write(const std::string& name, const std::string& bytes) const {
        std::ofstream(root_ / name, std::ios::binary) << bytes;
    }
    [[nodiscard]] const std::filesystem::path& path() const { return root_; }
    [[nodiscard]] std::string read(const std::string& name) const { return contents(root_ / name); }

    struct Outcome {
        int status;            // exit status
        std::string terminal;  // standard output and standard error
    };

    // Runs shell commands in the folder. QUANDRIX is the program.
    [[nodiscard]] Outcome run(const std::string& commands) const {
        write("commands", "cd " + root_.string() + "\nexport TZ=UTC\nQUANDRIX() { " PROGRAM " \"$@\"; }\n" + commands);
        const int status = std::system(("cd " + root_.string() + "; sh ./commands >terminal 2>&1").c_str());
        return {WEXITSTATUS(status), read("terminal")};
    }

 private:
    std::filesystem::path root_;
};

// Decodes a trace as hex text (" -d") or as bytes (""), checks the exit status and returns the report.
inline std::string decode(const std::string& trace, const std::string& option, int status = 0) {
    const Folder folder;
    folder.write("trace", trace);
    const Folder::Outcome outcome = folder.run("QUANDRIX trace report" + option);
    EXPECT_EQ(outcome.status, status) << outcome.terminal;
    return folder.read("report");
}

// The same for hex text after a header of zero bytes.
inline std::string decode_hex(const std::string& body, int status = 0) {
    return decode(ZERO_HEADER + body, " -d", status);
}
