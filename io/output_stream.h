#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "io/interface.h"

// Takes what a stream writes, instead of a file.
class OutputSink : public Interface {
 public:
    virtual void take(std::string_view bytes) = 0;
};

// A file written forward through one fixed buffer. It is written in whole blocks: only the last one can end within a
// page of memory. After a write has failed, nothing more is written and all further bytes are dropped.
class OutputStream {
 public:
    // room() has space for at least this many bytes.
    static constexpr std::size_t LONGEST_PIECE = 512;

    // Takes over an open descriptor. Below 0, all bytes are dropped. The name is kept for messages; it must outlive the
    // stream.
    void attach(int descriptor, const char* name);

    // Hands all bytes to a sink instead, which must stay valid while the stream is used.
    void attach(OutputSink& sink);

    // The place where the next bytes go, at most LONGEST_PIECE; the caller then tells filled() where they end. Before
    // that, a full block is written out.
    char* room() {
        if (next_ >= buffer_.data() + BLOCK_SIZE) {
            write_out(BLOCK_SIZE);
        }
        return next_;
    }
    void filled(char* end) { next_ = end; }

    // Writes bytes, however many.
    void write(std::string_view bytes);

    // Writes out what is buffered. False when any part of the file could not be written.
    [[nodiscard]] bool flush();

    // Writes out what is buffered and closes the descriptor, if one is attached. False as above, or when closing fails.
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
