#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calls/message.h"

// Which calls may be on a channel: those that named it, and that no RESTART has ended since.
class ChannelCalls {
 public:
    void opened(const Message& first, std::uint32_t no);
    void named_channel(const Message& message, std::uint32_t no);

    // Takes out the calls that a RESTART may concern, at least those that it does; each once, in their order.
    std::vector<std::uint32_t> take(const Message& restart);

 private:
    void take_from(const std::string& prefix, std::vector<std::uint32_t>& calls);

    // By line, interface, '/' and channel; with no channel, each call of the line once.
    std::map<std::string, std::vector<std::uint32_t>> calls_;
};

// Whether a RESTART concerns a call on that interface and channel.
bool concerns(const Message& restart, std::string_view interface, std::string_view channels);
