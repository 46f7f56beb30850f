#include "calls/channel_calls.h"

#include <algorithm>
#include <bitset>
#include <charconv>

namespace {

// Classes of a RESTART (Q.931 section 4.5.25).
constexpr std::uint8_t INDICATED_CHANNELS = 0;
constexpr std::uint8_t ALL_INTERFACES = 7;

std::uint8_t class_of(const Message& restart) {
    constexpr std::uint8_t SINGLE_INTERFACE = 6;
    return restart.restart_class.value_or(restart.channel.empty() ? SINGLE_INTERFACE : INDICATED_CHANNELS);
}

std::string line_key(const Message& message) { return {1, static_cast<char>(message.line.value_or(0))}; }

// "1,2,31": calls what is given with each of them.
template <typename Action>
void for_each_channel(std::string_view channels, Action action) {
    while (!channels.empty()) {
        const std::size_t comma = std::min(channels.find(','), channels.size());
        action(channels.substr(0, comma));
        channels.remove_prefix(std::min(comma + 1, channels.size()));
    }
}

// "B1" is channel 1.
std::bitset<128> channel_set(std::string_view channels) {
    std::bitset<128> set;
    for_each_channel(channels, [&](std::string_view channel) {
        channel.remove_prefix(channel.starts_with('B') ? 1 : 0);
        unsigned number = 0;
        std::from_chars(channel.data(), channel.data() + channel.size(), number);
        set.set(number % set.size());
    });
    return set;
}

}  // namespace

void ChannelCalls::opened(const Message& first, std::uint32_t no) { calls_[line_key(first) + '/'].push_back(no); }

void ChannelCalls::named_channel(const Message& message, std::uint32_t no) {
    const std::string interface = line_key(message) + message.interface + '/';
    for_each_channel(message.channel,
                     [&](std::string_view channel) { calls_[interface + std::string(channel)].push_back(no); });
}

void ChannelCalls::take_from(const std::string& prefix, std::vector<std::uint32_t>& calls) {
    auto entry = calls_.lower_bound(prefix);
    while (entry != calls_.end() && entry->first.starts_with(prefix)) {
        calls.insert(calls.end(), entry->second.begin(), entry->second.end());
        entry = calls_.erase(entry);
    }
}

std::vector<std::uint32_t> ChannelCalls::take(const Message& restart) {
    std::vector<std::uint32_t> calls;
    const std::string line = line_key(restart);
    const std::string interface = line + restart.interface + '/';
    switch (class_of(restart)) {
        case INDICATED_CHANNELS:
            for_each_channel(restart.channel, [&](std::string_view channel) {
                if (const auto entry = calls_.find(interface + std::string(channel)); entry != calls_.end()) {
                    calls.insert(calls.end(), entry->second.begin(), entry->second.end());
                    calls_.erase(entry);
                }
            });
            break;
        case ALL_INTERFACES: take_from(line, calls); break;
        default: take_from(interface, calls); break;
    }
    std::ranges::sort(calls);
    calls.erase(std::unique(calls.begin(), calls.end()), calls.end());
    return calls;
}

bool concerns(const Message& restart, std::string_view interface, std::string_view channels) {
    switch (class_of(restart)) {
        case ALL_INTERFACES: return true;
        case INDICATED_CHANNELS: break;
        default: return interface == restart.interface;
    }
    return interface == restart.interface && (channel_set(channels) & channel_set(restart.channel)).any();
}
