#include "io/input_stream.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "io/file_access.h"

namespace {

constexpr std::uint8_t SPACE = 16;
constexpr std::uint8_t OTHER = 17;

// Class of every character: the value of a hexadecimal digit, white space, or anything else.
constexpr auto CLASSES = [] {
    std::array<std::uint8_t, 256> classes{};
    classes.fill(OTHER);
    for (const char space : {' ', '\t', '\n', '\v', '\f', '\r'}) {
        classes[static_cast<std::uint8_t>(space)] = SPACE;
    }
    for (std::uint8_t digit = 0; digit < 10; ++digit) {
        classes['0' + digit] = digit;
    }
    for (std::uint8_t digit = 10; digit < 16; ++digit) {
        classes['a' + digit - 10] = digit;
        classes['A' + digit - 10] = digit;
    }
    return classes;
}();

// Class of a value that InputStream::byte() returned. The end of the file is neither a digit nor white space.
std::uint8_t class_of(int character) {
    return character == InputStream::END ? OTHER : CLASSES[static_cast<std::uint8_t>(character)];
}

// Reads the next bytes of a file. Returns how many: 0 at the end of the file, below 0 on an error.
ssize_t read_some(int descriptor, std::span<std::uint8_t> buffer) {
    ssize_t count = 0;
    do {
        count = ::read(descriptor, buffer.data(), buffer.size());
    } while (count < 0 && errno == EINTR);
    return count;
}

}  // namespace

bool InputStream::open(const char* name) {
    const int descriptor = open_for_reading(name);
    open(descriptor, name);
    return descriptor >= 0;
}

void InputStream::open(int descriptor, const char* name) {
    take(descriptor, name);
    failed_ = nullptr;
}

void InputStream::open(std::span<const std::uint8_t> memory) {
    open(-1, "");
    next_ = memory.data();
    limit_ = next_ + memory.size();
}

bool InputStream::go_on_in(int descriptor, const char* name, std::uint64_t size) {
    take(descriptor, name);
    size_ = size;
    return seek(0) && (::fcntl(descriptor, F_GETFL) & O_ACCMODE) != O_WRONLY;
}

void InputStream::take(int descriptor, const char* name) {
    close();
    descriptor_ = descriptor;
    name_ = name;
    size_ = 0;
    conversion_ = nullptr;
    converted_ = 0;
    eof_ = false;
    next_ = limit_ = buffer_.data();
}

// It moves the file position. NOLINTNEXTLINE(readability-make-member-function-const)
bool InputStream::seek(long offset) { return ::lseek(descriptor_, offset, SEEK_SET) == offset; }

void InputStream::close() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
        descriptor_ = -1;
    }
}

void InputStream::convert_by(Conversion conversion) { conversion_ = conversion; }

// Reads the next bytes to the start of `room`, converted if there is a conversion. Returns how many: 0 at the end,
// below 0 on an error. The octets to convert are read into the last quarter of `room`. Each becomes at most 4 bytes, so
// the text never overwrites an octet that is still to be converted.
ssize_t InputStream::read_into(std::span<std::uint8_t> room) {
    if (conversion_ == nullptr) {
        return read_some(descriptor_, room);
    }
    const auto octets = room.last(room.size() / 4);
    const ssize_t count = read_some(descriptor_, octets);
    if (count <= 0) {
        return count;
    }
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the bytes become characters
    auto* const text = reinterpret_cast<char*>(room.data());
    const char* const end = conversion_(octets.first(static_cast<std::size_t>(count)), converted_, text);
    converted_ += static_cast<std::uint64_t>(count);
    return end - text;
}

// Moves the unread bytes to the start of the buffer and reads more after them. False at the end of the file; from then
// on the file is not read again.
bool InputStream::fill() {
    if (eof_) {
        return false;
    }
    std::uint8_t* const end = std::copy(next_, limit_, buffer_.data());
    const auto held = static_cast<std::size_t>(end - buffer_.data());
    const ssize_t count = descriptor_ < 0 ? 0 : read_into(std::span(buffer_).subspan(held));
    eof_ = count <= 0;
    if (count < 0 || (eof_ && size_ != 0)) {
        failed_ = name_;
    }
    size_ -= std::min(size_, static_cast<std::uint64_t>(eof_ ? 0 : count));
    next_ = buffer_.data();
    limit_ = eof_ ? end : end + count;
    return !eof_;
}

std::span<const std::uint8_t> InputStream::piece(std::size_t most) {
    if (next_ == limit_ && !fill()) {
        return {};
    }
    const std::uint8_t* const begin = next_;
    next_ += std::min(most, static_cast<std::size_t>(limit_ - next_));
    return {begin, next_};
}

std::span<const std::uint8_t> InputStream::peek(std::size_t count) {
    while (static_cast<std::size_t>(limit_ - next_) < count && fill()) {
    }
    return {next_, std::min(count, static_cast<std::size_t>(limit_ - next_))};
}

int InputStream::skip_space() {
    int character = byte();
    while (class_of(character) == SPACE) {
        character = byte();
    }
    return character;
}

void InputStream::skip_word(int character) {
    while (character != END && class_of(character) != SPACE) {
        character = byte();
    }
    put_back(character);
}

void InputStream::put_back(int character) {
    if (character != END) {
        --next_;
    }
}

std::size_t InputStream::scan_pairs(std::span<std::uint8_t> bytes) {
    std::size_t count = 0;
    for (; count < bytes.size() && limit_ - next_ >= 4; ++count) {
        const std::uint32_t high = CLASSES[next_[1]];
        const std::uint32_t low = CLASSES[next_[2]];
        if (CLASSES[next_[0]] != SPACE || CLASSES[next_[3]] != SPACE || (high | low) >= SPACE) {
            break;
        }
        bytes[count] = static_cast<std::uint8_t>(high << 4U | low);
        next_ += 3;
    }
    return count;
}

// Scans digits, and "0x" before them; "0x" alone is 0. `character` is the first character; afterwards it is the first
// one after the number. A number of more than 64 bits is all ones, whatever its sign. False when there is no digit.
bool InputStream::scan_digits(int& character, bool negative, std::uint64_t& number) {
    bool digits = false;
    if (character == '0') {
        digits = true;
        character = byte();
        if (character == 'x' || character == 'X') {
            character = byte();
        }
    }
    bool overflow = false;
    number = 0;
    for (std::uint8_t digit = class_of(character); digit < SPACE; digit = class_of(character)) {
        overflow = overflow || (number >> 60U) != 0;
        number = number << 4U | digit;
        digits = true;
        character = byte();
    }
    if (overflow) {
        number = std::numeric_limits<std::uint64_t>::max();
    } else if (negative) {
        number = -number;
    }
    return digits;
}

bool InputStream::scan(std::uint32_t& number) {
    for (;;) {
        int character = skip_space();
        if (character == END) {
            return false;
        }
        const bool negative = character == '-';
        if (negative || character == '+') {
            character = byte();
        }
        std::uint64_t whole = 0;
        if (scan_digits(character, negative, whole)) {
            put_back(character);
            number = static_cast<std::uint32_t>(whole);
            return true;
        }
        skip_word(character);
    }
}
