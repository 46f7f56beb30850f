#include "captures/conversion.h"

#include "io/diagnostics.h"

namespace {

constexpr std::int64_t MOST_NAMED = 10;  // of a kind of trouble

void say_count(std::int64_t count, const std::string& text) {
    if (count > 0) {
        say(std::to_string(count) + text);
    }
}

}  // namespace

bool Conversion::next() {
    Packet packet;
    const bool there = reader_.next(packet);
    if (there) {
        take(packet);
    } else {
        writer_.finish();
    }
    return there;
}

void Conversion::take(const Packet& packet) {
    ++packets_;
    const char* const trouble = trouble_of(packet);
    if (is_of_other_line(packet)) {
        ++of_other_lines_;
    } else if (trouble != nullptr) {
        leave_out(packet, trouble);
    } else if (packet.other) {
        ++others_;
    } else {
        write(packet);
    }
}

bool Conversion::is_of_other_line(const Packet& packet) const {
    const bool is_frame = packet.trouble == nullptr && !packet.other;
    return is_frame && line_ && packet.frame.line != *line_;
}

void Conversion::leave_out(const Packet& packet, const char* trouble) {
    ++unusable_;
    if (++troubles_[trouble] <= MOST_NAMED) {
        say(reader_.unit() + (" " + std::to_string(packet.number)) + " is left out: " + trouble);
    }
}

void Conversion::write(const Packet& packet) {
    ++frames_;
    wrong_fractions_ += packet.wrong_fraction ? 1 : 0;
    lines_.set(packet.frame.line);
    writer_.write(packet.frame);
}

void Conversion::tell_more_trouble() const {
    for (const auto& [trouble, count] : troubles_) {
        say_count(count - MOST_NAMED, std::string(" more ") + reader_.unit() + "s are left out: " + trouble);
    }
}

void Conversion::tell_counts() const {
    const std::string other_lines = line_ ? std::to_string(of_other_lines_) + " of other lines, " : "";
    say(std::to_string(frames_) + " frames from " + std::to_string(packets_) +
        " packets; left out: " + std::to_string(others_) + " of other channels or layers, " + other_lines +
        std::to_string(unusable_) + " not convertible");
}

bool Conversion::merges_lines() const { return lines_.count() > 1 && !writer_.has_lines(); }

std::string Conversion::list_of_lines() const {
    constexpr int MOST_LISTED = 10;
    std::string list;
    int listed = 0;
    for (std::size_t line = 0; line < lines_.size() && listed <= MOST_LISTED; ++line) {
        if (lines_[line]) {
            list += listed == 0 ? "" : ", ";
            list += listed < MOST_LISTED ? std::to_string(line) : "...";
            ++listed;
        }
    }
    return list;
}

bool Conversion::tell_result() const {
    tell_more_trouble();
    tell_counts();
    say_count(wrong_fractions_, " frames have a wrong fraction of a second in the capture: it counts as 0");
    say_count(writer_.clamped(), " frames have the nearest time that a trace can hold, not their own");
    if (merges_lines()) {
        say("the frames are of " + std::to_string(lines_.count()) + " lines (" + list_of_lines() +
            "), which a primary-rate trace does not tell apart: take one with -l LINE, or give a basic-rate PROTOCOL");
    }
    return unusable_ == 0 && wrong_fractions_ == 0 && writer_.clamped() == 0 && !merges_lines();
}
