#pragma once

#include <array>

#include "captures/capture_reader.h"
#include "io/input_stream.h"

// Reads an EyeSDN file, from after its name. A record is cut short when the next one begins in it. Octets that belong
// to no record count as a packet.
class EyesdnReader : public CaptureReader {
 public:
    explicit EyesdnReader(InputStream& stream) : stream_(stream) {}

    bool next(Packet& packet) override;

 private:
    bool find_record();
    int octet();
    bool read(std::span<std::uint8_t> octets);

    InputStream& stream_;
    std::int64_t number_ = 0;
    bool record_begun_ = false;  // the octet FF of the next record has been taken
    std::array<std::uint8_t, 65535> octets_;
};
