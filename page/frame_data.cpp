#include "page/frame_data.h"

#include "calls/columns.h"
#include "page/escape.h"

namespace {

constexpr std::size_t BLOCK_SIZE = 1'000'000;
constexpr std::uint8_t SAPI_MANAGEMENT = 63;

std::string key_of(const PageFrame& frame) {
    if (frame.added.repeated) {
        return "~";
    }
    if (frame.added.no != 0) {
        return std::to_string(frame.added.no);
    }
    return frame.message.is_message || frame.message.sapi == SAPI_MANAGEMENT ? "-" : "~";
}

}  // namespace

void FrameData::add(const PageFrame& frame, std::int64_t trace_start, std::string_view lines) {
    const Message& message = frame.message;
    append(key_of(frame), message, message_row(message, frame.added.no, trace_start, ""), lines);
    ++(message.is_message && !frame.added.repeated ? counts_.messages : counts_.other_frames);
}

void FrameData::add_damage(const Message& place, std::int64_t trace_start, std::string_view lines) {
    append("!", place, message_row(place, 0, trace_start, ""), lines);
    ++counts_.damaged_places;
}

void FrameData::append(std::string_view key, const Message& frame, const std::string& values, std::string_view lines) {
    std::string& text = block();
    const std::size_t before = text.size();
    text.append("\t").append(key).append("\t");
    text.append(frame.elapsed ? std::to_string(*frame.elapsed) : "-").append("\t");
    append_values(text, values);
    text += '\n';
    append_data(text, lines);
    text += '\n';
    counts_.bytes += text.size() - before;
}

// The text that the next frame is appended to.
std::string& FrameData::block() {
    if (counts_.bytes > limit_) {
        blocks_.clear();
    }
    if (blocks_.empty() || blocks_.back().size() > BLOCK_SIZE) {
        blocks_.emplace_back().reserve(BLOCK_SIZE + BLOCK_SIZE / 16);
    }
    return blocks_.back();
}

void FrameData::write(OutputStream& page) const {
    page.write("key\tms\t");
    page.write(MESSAGE_COLUMNS);
    page.write("\n");
    for (const std::string& text : blocks_) {
        page.write(text);
    }
}
