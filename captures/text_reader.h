#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "captures/capture_reader.h"
#include "io/input_stream.h"

// Reads frames from text, a line each: "[TIME] R|T [LINE] OCTETS", TIME in seconds since 1970 with a fraction or as
// "2026-11-22 10:00:00.120" (UTC), and that of the line before when there is none (no time until one has it); LINE a
// decimal number in brackets; OCTETS in hexadecimal, two digits each. "#" begins a comment.
class TextReader : public CaptureReader {
 public:
    explicit TextReader(InputStream& stream) : stream_(stream) {}

    bool next(Packet& packet) override;
    [[nodiscard]] const char* unit() const override { return "line"; }

 private:
    bool take_line();
    bool read_frame(std::string_view text, Frame& frame);

    InputStream& stream_;
    std::int64_t number_ = 0;
    std::optional<std::int64_t> when_;
    std::array<char, 4096> line_;           // without what goes beyond
    std::size_t length_ = 0;                // of the line, all of it
    std::array<std::uint8_t, 256> octets_;  // one more than a frame may have, to be seen as too many
};
