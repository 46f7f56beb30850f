#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// Octets of a record, taken one after another. An octet that is not there reads as 0, and is noted.
class Octets {
 public:
    explicit Octets(std::span<const std::uint8_t> octets) : rest_(octets) {}

    std::uint8_t next() {
        const std::span<const std::uint8_t> octet = take(1);
        return octet.empty() ? std::uint8_t{0} : octet[0];
    }

    // So many octets; none when there are not as many.
    std::span<const std::uint8_t> take(std::size_t count) {
        overrun_ = overrun_ || count > rest_.size();
        const std::size_t taken = overrun_ ? 0 : count;
        const std::span<const std::uint8_t> octets = rest_.first(taken);
        rest_ = rest_.subspan(taken);
        return octets;
    }

    [[nodiscard]] std::span<const std::uint8_t> rest() const { return rest_; }
    [[nodiscard]] bool empty() const { return rest_.empty(); }
    [[nodiscard]] bool overrun() const { return overrun_; }  // more was asked for than there is

 private:
    std::span<const std::uint8_t> rest_;
    bool overrun_ = false;
};

// A hash of octets (FNV-1a), to tell a repeated message from another.
constexpr std::uint64_t hash_of(std::span<const std::uint8_t> octets) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const std::uint8_t octet : octets) {
        hash = (hash ^ octet) * 0x100000001B3U;
    }
    return hash;
}
