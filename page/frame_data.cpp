#include "page/frame_data.h"

#include <algorithm>

#include "calls/columns.h"
#include "page/escape.h"

namespace {

constexpr std::uint8_t SAPI_MANAGEMENT = 63;

std::string key_of(const Message& frame, const CallTable::Added& added) {
    if (added.repeated) {
        return "~";
    }
    if (added.no != 0) {
        return std::to_string(added.no);
    }
    return frame.is_message || frame.sapi == SAPI_MANAGEMENT ? "-" : "~";
}

}  // namespace

FrameData::FrameData(std::vector<std::uint32_t> calls, std::size_t limit)
    : calls_(std::move(calls)), limit_(limit), stretches_(1) {}

void FrameData::add(const Message& frame, const CallTable::Added& added, std::int64_t trace_start,
                    std::string_view lines) {
    const bool chosen = std::ranges::count(calls_, added.no) != 0;
    const bool of_others = added.no != 0 || frame.is_message;
    if (!calls_.empty() && !chosen && of_others) {
        return;
    }
    if (chosen) {
        spans_.try_emplace(added.no, stretches_.size(), 0).first->second.second = stretches_.size();
        stretches_.emplace_back();
    }
    append(key_of(frame, added), frame, message_row(frame, added.no, trace_start, ""), lines);
    Counts& counts = stretches_.back().counts;
    ++(frame.is_message && !added.repeated ? counts.messages : counts.other_frames);
    if (chosen) {
        stretches_.emplace_back();
    }
}

// What the report says about corrupt data can hold octets of any call.
void FrameData::add_damage(const Message& place, std::int64_t trace_start, std::string_view lines) {
    append("!", place, message_row(place, 0, trace_start, ""), calls_.empty() ? lines : std::string_view());
    ++stretches_.back().counts.damaged_places;
}

// A text that has passed the limit is long enough to know.
void FrameData::append(std::string_view key, const Message& frame, const std::string& values, std::string_view lines) {
    std::string& text = stretches_.back().text;
    if (text.size() > limit_) {
        return;
    }
    text.append("\t").append(key).append("\t");
    text.append(frame.elapsed ? std::to_string(*frame.elapsed) : "-").append("\t");
    append_values(text, values);
    text += '\n';
    append_data(text, lines);
    text += '\n';
}

// Of each stretch, whether it stands between the first and the last frame of a call.
std::vector<bool> FrameData::stretches_of_calls() const {
    std::vector<int> changes(stretches_.size() + 1);
    for (const auto& [call, span] : spans_) {
        ++changes[span.first];
        --changes[span.second + 1];
    }
    std::vector<bool> inside;
    int calls = 0;
    for (const int change : changes) {
        calls += change;
        inside.push_back(calls > 0);
    }
    return inside;
}

std::size_t FrameData::finish() {
    const std::vector<bool> inside = stretches_of_calls();
    std::size_t bytes = 0;
    for (std::size_t i = 0; i < stretches_.size(); ++i) {
        Stretch& stretch = stretches_[i];
        if (!calls_.empty() && !inside[i]) {
            stretch = Stretch();
        }
        bytes += stretch.text.size();
        counts_.messages += stretch.counts.messages;
        counts_.other_frames += stretch.counts.other_frames;
        counts_.damaged_places += stretch.counts.damaged_places;
    }
    return bytes;
}

void FrameData::write(OutputStream& page) const {
    page.write("key\tms\t");
    page.write(MESSAGE_COLUMNS);
    page.write("\n");
    for (const Stretch& stretch : stretches_) {
        page.write(stretch.text);
    }
}
