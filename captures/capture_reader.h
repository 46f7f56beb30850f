#pragma once

#include <cstdint>

#include "captures/frame.h"

// What a capture holds at one place.
struct Packet {
    std::int64_t number = 0;        // counted from 1; in a text, of its line
    Frame frame{};                  // its octets stand until the next packet is taken; here also none or too many
    bool other = false;             // no frame of the D channel, and none that should be one
    bool wrong_fraction = false;    // of the second in its time, which counts as 0
    bool cut = false;               // the capture does not have the frame's last octets
    const char* trouble = nullptr;  // why there is no frame though there should be
};

// Sets the time that the capture gives to the packet. A second has no more microseconds than 999999: others are a wrong
// fraction.
void set_time(Packet& packet, std::int64_t seconds, std::int64_t microseconds);

// Why a packet cannot become a record; null when it can, or need not.
const char* trouble_of(const Packet& packet);

// A capture read packet by packet.
class CaptureReader {
 public:
    CaptureReader() = default;
    virtual ~CaptureReader() = default;
    CaptureReader(const CaptureReader&) = delete;
    CaptureReader& operator=(const CaptureReader&) = delete;

    // Takes the next packet; false at the end.
    virtual bool next(Packet& packet) = 0;

    // What its numbers count.
    [[nodiscard]] virtual const char* unit() const { return "packet"; }
};
