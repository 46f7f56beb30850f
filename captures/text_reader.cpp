#include "captures/text_reader.h"

#include <algorithm>
#include <charconv>
#include <chrono>

namespace {

bool is_blank(char character) { return character == ' ' || (character >= '\t' && character <= '\r'); }

bool is_digit(char character) { return character >= '0' && character <= '9'; }

// The rest of a line. Each function takes something from its start, and says whether it was there.
class Line {
 public:
    explicit Line(std::string_view text) : text_(text) {}

    void blanks() {
        while (!text_.empty() && is_blank(text_.front())) {
            text_.remove_prefix(1);
        }
    }

    bool character(char expected) {
        const bool there = text_.starts_with(expected);
        text_.remove_prefix(there ? 1 : 0);
        return there;
    }

    std::string_view digits() {
        const auto* const end = std::ranges::find_if_not(text_, is_digit);
        const std::string_view front(text_.begin(), end);
        text_.remove_prefix(front.size());
        return front;
    }

    // A decimal number up to `most`.
    bool number(std::int64_t& value, std::int64_t most) {
        const std::string_view front = digits();
        return std::from_chars(front.data(), front.data() + front.size(), value).ec == std::errc() && value <= most;
    }

    // Two hexadecimal digits.
    bool octet(std::uint8_t& value) {
        const std::string_view front = text_.substr(0, 2);
        const char* const end = std::from_chars(front.data(), front.data() + front.size(), value, 16).ptr;
        const bool there = end == front.data() + 2;
        text_.remove_prefix(there ? 2 : 0);
        return there;
    }

    [[nodiscard]] bool begins_with_digit() const { return !text_.empty() && is_digit(text_.front()); }
    [[nodiscard]] bool empty() const { return text_.empty(); }

 private:
    std::string_view text_;
};

// The digits after a point. Six of them count.
std::int64_t fraction(Line& line) {
    if (!line.character('.')) {
        return 0;
    }
    const std::string_view digits = line.digits();
    std::int64_t microseconds = 0;
    for (std::size_t i = 0; i < 6; ++i) {
        microseconds = 10 * microseconds + (i < digits.size() ? digits[i] - '0' : 0);
    }
    return microseconds;
}

// The rest of a date and time of day, after the year.
bool date_and_time(Line& line, std::int64_t year, std::int64_t& seconds) {
    std::int64_t month = 0;
    std::int64_t day = 0;
    std::int64_t hours = 0;
    std::int64_t minutes = 0;
    if (!line.number(month, 12) || !line.character('-') || !line.number(day, 31) || !line.character(' ')) {
        return false;
    }
    line.blanks();
    if (!line.number(hours, 23) || !line.character(':') || !line.number(minutes, 59) || !line.character(':') ||
        !line.number(seconds, 60)) {
        return false;
    }
    const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(year)),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day)));
    seconds +=
        std::chrono::seconds(std::chrono::sys_days(date).time_since_epoch()).count() + 3600 * hours + 60 * minutes;
    return date.ok() && year <= 9999;
}

// The time at the start of a line. A line without one leaves the last time as it is.
bool time(Line& line, std::optional<std::int64_t>& when) {
    constexpr std::int64_t LATEST = std::int64_t{1} << 40U;
    line.blanks();
    if (!line.begins_with_digit()) {
        return true;
    }
    std::int64_t seconds = 0;
    if (!line.number(seconds, LATEST) || (line.character('-') && !date_and_time(line, seconds, seconds))) {
        return false;
    }
    when = seconds * MICROSECONDS + fraction(line);
    return true;
}

// The direction.
bool direction(Line& line, bool& transmitted) {
    line.blanks();
    transmitted = line.character('T');
    return transmitted || line.character('R');
}

// The number of the line, which may come after the direction.
bool line_number(Line& line, std::uint8_t& number) {
    std::int64_t value = 0;
    line.blanks();
    if (line.character('[') && (!line.number(value, 255) || !line.character(']'))) {
        return false;
    }
    number = static_cast<std::uint8_t>(value);
    return true;
}

// The octets up to the end of the line, or as many as there is room for.
bool octets(Line& line, std::span<std::uint8_t> room, std::size_t& count) {
    line.blanks();
    for (count = 0; count < room.size() && !line.empty(); ++count) {
        if (!line.octet(room[count])) {
            return false;
        }
        line.blanks();
    }
    return true;
}

}  // namespace

// Takes the next line; false at the end of the text.
bool TextReader::take_line() {
    int character = stream_.byte();
    if (character == InputStream::END) {
        return false;
    }
    for (length_ = 0; character != '\n' && character != InputStream::END; character = stream_.byte()) {
        if (length_ < line_.size()) {
            line_[length_] = static_cast<char>(character);
        }
        ++length_;
    }
    ++number_;
    return true;
}

// Reads the frame in a line. False when the line has another form.
bool TextReader::read_frame(std::string_view text, Frame& frame) {
    Line line(text);
    std::size_t count = 0;
    std::optional<std::int64_t> when = when_;
    const bool good = time(line, when) && direction(line, frame.transmitted) && line_number(line, frame.line) &&
                      octets(line, octets_, count);
    frame.octets = std::span(octets_).first(count);
    if (good) {
        when_ = when;
        frame.when = when.value_or(0);
        frame.timed = when.has_value();
    }
    return good;
}

bool TextReader::next(Packet& packet) {
    while (take_line()) {
        const std::string_view whole(line_.data(), std::min(length_, line_.size()));
        const std::string_view text = whole.substr(0, whole.find('#'));
        const bool too_long = text.size() == line_.size() && length_ > line_.size();
        if (!too_long && std::ranges::all_of(text, is_blank)) {
            continue;
        }
        packet = {.number = number_};
        if (too_long) {
            packet.trouble = "longer than 4096 characters";
        } else if (!read_frame(text, packet.frame)) {
            packet.trouble = "not of the form [TIME] R|T [LINE] OCTETS";
        }
        return true;
    }
    return false;
}
