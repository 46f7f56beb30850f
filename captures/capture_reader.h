#pragma once

#include <cstdint>

#include "captures/frame.h"
#include "io/interface.h"

// A packet of a capture: mostly a frame.
struct Packet {
    std::int64_t number = 0;        // counted from 1; in a text the number of its line
    Frame frame{};                  // valid until the next packet is taken; may have no octets, or too many
    bool other = false;             // not of the D channel, and not meant to be
    bool wrong_fraction = false;    // the time in the capture has one, which counts as 0
    bool cut = false;               // the last octets of the frame are not in the capture
    const char* trouble = nullptr;  // why it has no frame though it should; null when it has one
};

// Sets the packet's time to the one in the capture. More than 999999 microseconds are a wrong fraction.
void set_time(Packet& packet, std::int64_t seconds, std::int64_t microseconds);

// Why a packet cannot become a record. Null when it can, and when it is not of the D channel.
const char* trouble_of(const Packet& packet);

// Reads a capture packet by packet.
class CaptureReader : public Interface {
 public:
    // Takes the next packet; false at the end.
    virtual bool next(Packet& packet) = 0;

    // The word for what the packet numbers count.
    [[nodiscard]] virtual const char* unit() const { return "packet"; }
};
