#include "calls/repeated_frames.h"

// Frames of DASS2 and DPNSS, which have no TEI, are told apart by their timeslots.
std::string RepeatedFrames::key(const Message& message, bool transmitted) {
    std::string key = transmitted ? "T" : "R";
    if (!message.tei) {
        return key + message.reference;
    }
    key += static_cast<char>(message.line.value_or(0));
    key += static_cast<char>(message.sapi);
    return key + static_cast<char>(*message.tei);
}

std::optional<std::uint32_t> RepeatedFrames::call_of_repeated(const Message& message) const {
    if (!message.send_number) {
        return {};
    }
    const auto found = links_.find(key(message, message.transmitted));
    if (found == links_.end()) {
        return {};
    }
    const Link& link = found->second;
    const unsigned number = *message.send_number;
    const unsigned back = (link.last - number) & 0x7FU;  // how many new frames follow the one of that number
    const Sent& sent = link.sent[number % WINDOW];
    return back < WINDOW - 1 && repeats(message, sent) ? std::optional(sent.no) : std::nullopt;
}

bool RepeatedFrames::repeats(const Message& message, const Sent& sent) {
    const bool too_late = sent.time && message.elapsed && *message.elapsed - *sent.time > LONGEST_MS;
    return sent.number == message.send_number && sent.content == message.content && !too_late;
}

void RepeatedFrames::keep(const Message& message, std::uint32_t no) {
    if (!message.send_number) {
        return;
    }
    Link& link = links_[key(message, message.transmitted)];
    link.last = *message.send_number;
    if (!message.tei) {
        link.sent = {};  // the one before counts alone
    }
    link.sent[link.last % WINDOW] = {message.content, message.elapsed, no, link.last};
}

void RepeatedFrames::link_established(const Message& sabme) {
    links_.erase(key(sabme, false));
    links_.erase(key(sabme, true));
}
