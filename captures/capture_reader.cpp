#include "captures/capture_reader.h"

#include "trace/format.h"

void set_time(Packet& packet, std::int64_t seconds, std::int64_t microseconds) {
    packet.wrong_fraction = microseconds < 0 || microseconds >= MICROSECONDS;
    packet.frame.when = seconds * MICROSECONDS + (packet.wrong_fraction ? 0 : microseconds);
}

const char* trouble_of(const Packet& packet) {
    if (packet.trouble != nullptr || packet.other) {
        return packet.trouble;
    }
    if (packet.cut) {
        return "cut by the snap length";
    }
    if (packet.frame.octets.empty()) {
        return "a frame of no octets";
    }
    return packet.frame.octets.size() > LONGEST_DATA ? "a frame of more than 255 octets" : nullptr;
}
