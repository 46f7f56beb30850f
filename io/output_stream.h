#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// Takes what a stream writes, instead of a file.
class OutputSink {
 public:
    OutputSink() = default;
    virtual ~OutputSink() = default;
    OutputSink(const OutputSink&) = delete;
    OutputSink& operator=(const OutputSink&) = delete;

    virtual void take(std::string_view bytes) = 0;
};

// A file written forward through one fixed buffer, in whole blocks, so that none but the last ends within a page. After
// a write that fails nothing more is written, and what is still put in is dropped.
class OutputStream {
 public:
    // What room() is for at the least.
    static constexpr std::size_t LONGEST_PIECE = 512;

    // Takes over an open descriptor; below 0: what is written is dropped. The name is kept for messages; it must
    // outlive the stream.
    void attach(int descriptor, const char* name);

    // Hands all that is written to a sink instead; it must outlive the stream's use.
    void attach(OutputSink& sink);

    // Where the next bytes are to be put, LONGEST_PIECE at the most; filled() is told where they end. A full block is
    // written out first.
    char* room() {
        if (next_ >= buffer_.data() + BLOCK_SIZE) {
            write_out(BLOCK_SIZE);
        }
        return next_;
    }
    void filled(char* end) { next_ = end; }

    // Puts in bytes, as many as there are.
    void write(std::string_view bytes);

    // Writes out what is buffered. False when any part of the file could not be written.
    [[nodiscard]] bool flush();

    // The same, and closes the descriptor; harmless when none is attached.
    [[nodiscard]] bool close();

    // How many bytes have been written out.
    [[nodiscard]] std::uint64_t written() const { return written_; }

    // Whether a write has failed.
    [[nodiscard]] bool lost() const { return lost_; }

    // The attached descriptor; below 0 when there is none.
    [[nodiscard]] int descriptor() const { return descriptor_; }

    // The name for messages.
    [[nodiscard]] const char* name() const { return name_; }

 private:
    static constexpr std::size_t BLOCK_SIZE = 262144;

    void write_out(std::size_t size);

    int descriptor_ = -1;
    const char* name_ = "";
    OutputSink* sink_ = nullptr;
    std::uint64_t written_ = 0;
    bool lost_ = false;
    std::array<char, BLOCK_SIZE + LONGEST_PIECE> buffer_;
    char* next_ = buffer_.data();
};
