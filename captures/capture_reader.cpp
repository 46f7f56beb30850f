#include "captures/capture_reader.h"

#include "trace/format.h"

const char* trouble_of(const Packet& packet) {
    if (packet.trouble != nullptr || packet.other) {
        return packet.trouble;
    }
    if (packet.frame.octets.empty()) {
        return "a frame of no octets";
    }
    return packet.frame.octets.size() > LONGEST_DATA ? "a frame of more than 255 octets" : nullptr;
}
