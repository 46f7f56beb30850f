#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// A file read forward through one fixed buffer: as hexadecimal text by scan(), or as raw bytes by byte().
class InputStream {
 public:
    InputStream() = default;
    ~InputStream() { close(); }
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    // What byte() returns at the end of the file.
    static constexpr int END = -1;

    // Closes the file that is open, if any, and opens another one at its first byte. False when open_for_reading()
    // fails. The name is kept for messages; it must outlive the stream.
    [[nodiscard]] bool open(const char* name);

    // Takes over the descriptor of an open file of that name, and reads from its current position. Below 0, there is
    // nothing to read.
    void open(int descriptor, const char* name);

    // Reads from memory instead. The memory must stay valid while it is read.
    void open(std::span<const std::uint8_t> memory);

    // Goes on in another file, which was made from the one that is open: takes over its descriptor, and goes to its
    // first byte. False when it cannot be read from there. A file that ends before `size` bytes counts as a failed
    // read. A read that failed before still counts (failed()).
    [[nodiscard]] bool go_on_in(int descriptor, const char* name, std::uint64_t size);

    // Turns octets into the text that is read in their place. `position` is the index of the first of them, from 0.
    // Writes at most 4 bytes for each octet to `text`, and returns the end of what it wrote.
    using Conversion = char* (*)(std::span<const std::uint8_t> octets, std::uint64_t position, char* text);

    // Converts all octets, block by block, as they are read. To be called before the first octet is read.
    void convert_by(Conversion conversion);

    // Goes to an offset from the start of the file. False when the file cannot be positioned (a pipe, a device).
    [[nodiscard]] bool seek(long offset);

    // Scans the next hexadecimal number as scanf's "%x" does: white space, an optional sign, an optional 0x, digits.
    // Gives the low 32 bits of the number; a number of more than 64 bits is all ones. Text that is no number is skipped
    // up to the next white space. False when there is no further number.
    [[nodiscard]] bool scan(std::uint32_t& number);

    // A faster scan() for numbers of the usual form: one white space, two digits, one white space. Scans as many of
    // them into `bytes` as the buffer holds whole. Returns how many; 0 when the next number is one for scan().
    std::size_t scan_pairs(std::span<std::uint8_t> bytes);

    // The next byte, 0..255, or END.
    int byte() { return next_ != limit_ ? *next_++ : refill(); }

    // Takes all bytes that the buffer holds; fills it first if it is empty. None at the end of the file. They are valid
    // until the next read.
    [[nodiscard]] std::span<const std::uint8_t> block() { return piece(buffer_.size()); }

    // The same, but takes at most `most` bytes.
    [[nodiscard]] std::span<const std::uint8_t> piece(std::size_t most);

    // The next `count` bytes, fewer at the end of the file, without taking them. They are valid until the next read.
    [[nodiscard]] std::span<const std::uint8_t> peek(std::size_t count);

    // Whether a read has met the end of the file or an error. Taking the last byte does not yet meet the end.
    [[nodiscard]] bool eof() const { return eof_; }

    // Name of the file in which a read has failed since open(); null when no read has failed.
    [[nodiscard]] const char* failed() const { return failed_; }

    // The open file; -1 when there is none.
    [[nodiscard]] int descriptor() const { return descriptor_; }

    // Closes the file; harmless when none is open.
    void close();

 private:
    void take(int descriptor, const char* name);
    std::ptrdiff_t read_into(std::span<std::uint8_t> room);
    bool fill();
    int refill() { return fill() ? *next_++ : END; }
    int skip_space();
    bool scan_digits(int& character, bool negative, std::uint64_t& number);
    void skip_word(int character);
    void put_back(int character);

    int descriptor_ = -1;
    const char* name_ = "";
    const char* failed_ = nullptr;
    std::uint64_t size_ = 0;  // bytes still to be read; 0 when not known
    Conversion conversion_ = nullptr;
    std::uint64_t converted_ = 0;  // octets so far
    bool eof_ = false;
    const std::uint8_t* next_ = nullptr;
    const std::uint8_t* limit_ = nullptr;
    std::array<std::uint8_t, 65536> buffer_;
};
