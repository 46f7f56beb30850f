#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "captures/capture_reader.h"
#include "io/input_stream.h"

// Reads frames from text. Each line is a frame: "[TIME] R|T [LINE] OCTETS".
//
// - TIME is in seconds since 1970, with a fraction or without, or like "2026-11-22 10:00:00.120" (UTC). A line without
//   it has the time of the line before. The first lines may have none.
// - LINE is a decimal number in brackets.
// - OCTETS are two hexadecimal digits each.
// - "#" begins a comment.
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
    std::array<char, 4096> line_;           // the line, or as much of it as there is room for
    std::size_t length_ = 0;                // of the whole line
    std::array<std::uint8_t, 256> octets_;  // one more than a frame may have, so that too many show
};
