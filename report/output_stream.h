#pragma once

#include <array>
#include <cassert>
#include <cstddef>

// A file written forward through one fixed buffer, in whole blocks, so that none but the last ends within a page. After
// a write that fails nothing more is written, and what is still put in is dropped.
class OutputStream {
 public:
    // The most that room() may be asked for.
    static constexpr std::size_t LONGEST_PIECE = 512;

    // Takes over an open descriptor; below 0: what is written is dropped. The name is kept for messages; it must
    // outlive the stream.
    void attach(int descriptor, const char* name);

    // Room for the next `size` bytes, at most LONGEST_PIECE, to be filled by the caller at once. A full block is
    // written out first.
    char* room(std::size_t size) {
        assert(size <= LONGEST_PIECE);
        if (fill_ >= BLOCK_SIZE) {
            write_block();
        }
        char* piece = buffer_.data() + fill_;
        fill_ += size;
        return piece;
    }

    // Writes out what is buffered. False when any part of the file could not be written.
    [[nodiscard]] bool flush();

    // The same, and closes the descriptor; harmless when none is attached.
    [[nodiscard]] bool close();

    // Whether a write has failed.
    [[nodiscard]] bool lost() const { return lost_; }

    [[nodiscard]] const char* name() const { return name_; }

 private:
    static constexpr std::size_t BLOCK_SIZE = 1048576;

    void write_block() { write_out(BLOCK_SIZE); }
    void write_out(std::size_t size);

    int descriptor_ = -1;
    const char* name_ = "";
    bool lost_ = false;
    std::size_t fill_ = 0;
    std::array<char, BLOCK_SIZE + LONGEST_PIECE> buffer_;
};
