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

    // Opens a file at its first byte; closes the one that was open. False when that fails (open_for_reading). The name
    // is kept for messages; it must outlive the stream.
    [[nodiscard]] bool open(const char* name);

    // Takes over an open file of that name, read from where it stands; below 0: there is nothing to read.
    void open(int descriptor, const char* name);

    // Reads from memory instead, which must outlive the reading.
    void open(std::span<const std::uint8_t> memory);

    // Takes over an open file of that name with `size` bytes, made of the file that was open, and goes to its first
    // byte. False when it cannot be read from there. If it ends sooner, a read has failed; one that failed before still
    // counts.
    [[nodiscard]] bool go_on_in(int descriptor, const char* name, std::uint64_t size);

    // Turns octets into what is read in their place: given those that begin at a position (from 0), writes at most 4
    // bytes for each to `text`, and gives the end of what it wrote.
    using Conversion = char* (*)(std::span<const std::uint8_t> octets, std::uint64_t position, char* text);

    // Has all octets read through a conversion, block by block. To be called before the first of them is read.
    void convert_by(Conversion conversion);

    // Goes to an offset from the start of the file. False when the file cannot be positioned (a pipe, a device).
    [[nodiscard]] bool seek(long offset);

    // Scans the next hexadecimal number as scanf's "%x" does: white space, an optional sign, an optional 0x, digits.
    // The number is taken as 64 bits, all ones when it needs more, and cut to 32. Text that is no number is skipped up
    // to the next white space. False when there is no further number.
    [[nodiscard]] bool scan(std::uint32_t& number);

    // Scans as many of the next numbers into `bytes` as are what traces are made of (a white space, two digits, a white
    // space after them) and wholly in the buffer. Gives how many, 0 when the next one is for scan().
    std::size_t scan_pairs(std::span<std::uint8_t> bytes);

    // The next byte, 0..255, or END.
    int byte() { return next_ != limit_ ? *next_++ : refill(); }

    // All bytes that the buffer holds, after filling it when it is empty; none at the end. They stand until the next
    // read.
    [[nodiscard]] std::span<const std::uint8_t> block() { return piece(buffer_.size()); }

    // The next bytes, taken from what the buffer holds: `most` at the most, none at the end. They stand until the next
    // read.
    [[nodiscard]] std::span<const std::uint8_t> piece(std::size_t most);

    // The next bytes, which stay to be read: `count`, fewer where the file ends. They stand until the next read.
    [[nodiscard]] std::span<const std::uint8_t> peek(std::size_t count);

    // Whether a read has met the end of the file, or an error, which counts as the end; reaching the last byte alone
    // does not set it.
    [[nodiscard]] bool eof() const { return eof_; }

    // Name of the file that could not be read on, since open(); null when all reads went well.
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
    std::uint64_t size_ = 0;  // bytes still to be read, if that is known
    Conversion conversion_ = nullptr;
    std::uint64_t converted_ = 0;  // octets
    bool eof_ = false;
    const std::uint8_t* next_ = nullptr;
    const std::uint8_t* limit_ = nullptr;
    std::array<std::uint8_t, 65536> buffer_;
};
