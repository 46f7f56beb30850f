#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "calls/message.h"

// Knows the frames that were sent again. An information frame repeats one with its N(S) and content that lies within
// the window of its line, SAPI, TEI and direction; a frame of DASS2 or DPNSS repeats the one before in its timeslot and
// direction. Unnumbered frames repeat none.
class RepeatedFrames {
 public:
    // The call of the message that this one repeats, 0 when that has none; nothing when it repeats none.
    [[nodiscard]] std::optional<std::uint32_t> call_of_repeated(const Message& message) const;

    // Keeps a message that repeats none, with its call.
    void keep(const Message& message, std::uint32_t no);

    // Begins the numbers of both directions anew.
    void link_established(const Message& sabme);

 private:
    static constexpr unsigned WINDOW = 8;  // more than the 7 frames that a sender may have under way on primary rate

    static constexpr std::int64_t LONGEST_MS = 10'000;  // N200 times T200 is 3 to 4 seconds (Q.921 section 5.9)

    struct Sent {
        std::uint64_t content = 0;
        std::optional<std::int64_t> time;
        std::uint32_t no = 0;
        std::optional<std::uint8_t> number;  // N(S)
    };

    // One direction: the frames of the window, each by its number modulo WINDOW. DASS2 and DPNSS: the last one.
    struct Link {
        std::uint8_t last = 0;  // N(S) of the last new frame
        std::array<Sent, WINDOW> sent;
    };

    [[nodiscard]] static bool repeats(const Message& message, const Sent& sent);
    [[nodiscard]] static std::string key(const Message& message, bool transmitted);

    std::unordered_map<std::string, Link> links_;
};
