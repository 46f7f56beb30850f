#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "calls/message.h"

// Who calls whom, by the messages of the side that calls.
class CallNumbers {
 public:
    // To be told of each message of that side, but of a repeated SETUP.
    void add(const Message& message);

    [[nodiscard]] std::string from() const;
    [[nodiscard]] std::string to() const;

 private:
    struct Digits {
        std::uint8_t tei;
        std::string text;
    };

    std::string& further_digits(std::uint8_t terminal);

    bool has_selection_ = false;  // DASS2 and DPNSS: to_ is the selection fields
    std::string from_;
    std::string to_;               // of the SETUP
    std::vector<Digits> further_;  // that a terminal was sent later; each that wants them is sent the same
};
