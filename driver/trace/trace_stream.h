#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// A trace file read forward through one fixed buffer: as hexadecimal text by scan(), or as raw bytes by byte().
class TraceStream {
 public:
    TraceStream() = default;
    ~TraceStream() { close(); }
    TraceStream(const TraceStream&) = delete;
    TraceStream& operator=(const TraceStream&) = delete;

    // What byte() returns at the end of the file.
    static constexpr int END = -1;

    // Opens a file at its first byte; closes the one that was open. False when that fails (open_for_reading). The name
    // is kept for messages; it must outlive the stream.
    [[nodiscard]] bool open(const char* name);

    // Takes over an open file of that name, read from where it stands; below 0: there is nothing to read.
    void take(int descriptor, const char* name);

    // Takes over an open file of that name that holds `size` bytes, and goes to its first one. False when it cannot be
    // read from there. If it ends sooner, a read has failed.
    [[nodiscard]] bool open(int descriptor, const char* name, std::uint64_t size);

    // Reads from memory instead, which must outlive the reading.
    void open(std::span<const std::uint8_t> memory);

    // Goes to an offset from the start of the file. False when the file cannot be positioned (a pipe, a device).
    [[nodiscard]] bool seek(long offset);

    // Scans the next hexadecimal number as scanf's "%x" does: white space, an optional sign, an optional 0x, digits.
    // The number is taken as 64 bits, all ones when it needs more, and cut to 32. Text that is no number is skipped up
    // to the next white space. False when there is no further number.
    [[nodiscard]] bool scan(std::uint32_t& number);

    // Scans as many of the next numbers into `bytes` as are what traces are made of (a white space, two digits, a white
    // space behind them) and wholly in the buffer. Gives how many, 0 when the next one is for scan().
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

    // Name of the file that a read has failed of, in the whole life of the stream; null when none has.
    [[nodiscard]] const char* failed() const { return failed_; }

    // The open file; -1 when there is none.
    [[nodiscard]] int descriptor() const { return descriptor_; }

    // Closes the file; harmless when none is open.
    void close();

 private:
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
    bool eof_ = false;
    const std::uint8_t* next_ = nullptr;
    const std::uint8_t* limit_ = nullptr;
    std::array<std::uint8_t, 65536> buffer_;
};

// The trace, or the hex text made from a binary one; opened by the driver.
extern TraceStream ifp;
