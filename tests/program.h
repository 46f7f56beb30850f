#pragma once

#include <filesystem>
#include <string>
#include <vector>

// Ten zero bytes, the head of every test trace.
inline const std::string ZERO_HEADER(10, '\0');

// The transmit indent.
inline const std::string INDENT(39, ' ');

// An empty folder that the program runs in, removed at the end.
class Folder {
 public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    [[nodiscard]] std::filesystem::path path(const std::string& name) const { return root_ / name; }
    void write(const std::string& name, const std::string& bytes) const;
    // What the file holds; an empty text when it is missing.
    [[nodiscard]] std::string read(const std::string& name) const;

 private:
    std::filesystem::path root_;
};

struct Outcome {
    int status;            // exit status, or 1000 and the signal
    std::string terminal;  // standard output and standard error
};

// Starts the program in the folder; finish() waits for it.
int start(const Folder& folder, const std::vector<std::string>& arguments, const std::string& terminal = "terminal");
Outcome finish(const Folder& folder, int process, const std::string& terminal = "terminal");

// Runs the program in the folder to its end.
Outcome run(const Folder& folder, const std::vector<std::string>& arguments);

// Decodes a trace, given behind its header as hex text or as bytes, checks the status and gives the report.
std::string decode_hex(const std::string& body, int status = 0);
std::string decode_binary(const std::string& body);

// A file's whole contents, and text with "41 42" made into bytes.
std::string contents(const std::filesystem::path& file);
std::string bytes_of(const std::string& hex);
