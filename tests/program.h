#pragma once

#include <filesystem>
#include <string>

// Ten zero bytes, the head of most test traces.
inline const std::string ZERO_HEADER(10, '\0');

// The transmit indent.
inline const std::string INDENT(39, ' ');

struct Outcome {
    int status;            // exit status
    std::string terminal;  // standard output and standard error
};

// An empty folder that the program runs in, removed at the end.
class Folder {
 public:
    Folder();
    ~Folder() { std::filesystem::remove_all(root_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    [[nodiscard]] std::filesystem::path path(const std::string& name) const { return root_ / name; }
    void write(const std::string& name, const std::string& bytes) const;
    [[nodiscard]] std::string read(const std::string& name) const;

    // Runs shell commands in the folder, the program among them as QUANDRIX.
    [[nodiscard]] Outcome run(const std::string& commands) const;

 private:
    std::filesystem::path root_;
};

// Decodes a trace, given behind its header as hex text or as bytes, checks the status and gives the report.
std::string decode_hex(const std::string& body, int status = 0, const std::string& header = ZERO_HEADER);
std::string decode_binary(const std::string& body);

// A file's whole contents; an empty text when it is missing. And text with "41 42" made into bytes.
std::string contents(const std::filesystem::path& file);
std::string bytes_of(const std::string& hex);
