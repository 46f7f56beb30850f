#pragma once

#include <array>
#include <cstddef>

// The report: one fixed buffer in front of a file descriptor. Only the line words of report/lines.h write to it.
class ReportStream {
 public:
    // Takes over an open descriptor. The name is kept for messages; it must outlive the stream.
    void attach(int descriptor, const char* name);

    // Room for the next `size` bytes (a line, never the whole buffer) of the report, to be filled by the caller at
    // once. A full buffer is written out first; if that fails, the run ends.
    char* room(std::size_t size) {
        if (fill_ + size > buffer_.size()) {
            flush();
        }
        char* piece = buffer_.data() + fill_;
        fill_ += size;
        return piece;
    }

    // Writes out what is buffered and closes the descriptor; harmless when nothing is attached. False when any part
    // of the report could not be written.
    [[nodiscard]] bool close();

    [[nodiscard]] const char* name() const { return name_; }

 private:
    void flush();
    bool write_out();

    int descriptor_ = -1;
    const char* name_ = "";
    bool lost_ = false;  // a write failed: nothing more is written
    std::size_t fill_ = 0;
    std::array<char, 262144> buffer_;
};
