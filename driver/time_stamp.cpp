#include "driver/time_stamp.h"

#include <array>
#include <charconv>
#include <cstring>
#include <ctime>
#include <string_view>

#include "report/lines.h"
#include "report/state.h"
#include "trace/clock.h"

namespace {

constexpr std::size_t TIME_SIZE = 64;  // year of 10 digits at most, milliseconds of 6, the others of 2

// A moment of local time as "%d/%d/%d, %d:%d:%d.%d": month, day, year, hour, minute, second, milliseconds.
class TimeText {
 public:
    explicit TimeText(const Moment& moment) {
        const std::time_t time = moment.seconds;
        std::tm parts{};
        std::int64_t month = 0;
        std::int64_t year = 0;
        if (localtime_r(&time, &parts) != nullptr) {
            month = parts.tm_mon + 1;
            year = std::int64_t{parts.tm_year} + 1900;
        } else {
            parts = {};
        }
        append(month, "/");
        append(parts.tm_mday, "/");
        append(year, ", ");
        append(parts.tm_hour, ":");
        append(parts.tm_min, ":");
        append(parts.tm_sec, ".");
        append(moment.milliseconds, "");
    }

    [[nodiscard]] std::string_view view() const { return {text_.data(), size_}; }

 private:
    void append(std::int64_t number, std::string_view separator) {
        char* const from = text_.data() + size_;
        char* const end = std::to_chars(from, text_.data() + text_.size(), number).ptr;
        std::memcpy(end, separator.data(), separator.size());
        size_ += static_cast<std::size_t>(end - from) + separator.size();
    }

    std::array<char, TIME_SIZE> text_{};
    std::size_t size_ = 0;
};

}  // namespace

void Get_Real_Ticks(std::uint32_t ticks) {
    const TimeText time(moment_of(ticks));
    if (First_Msg == 0) {
        text("TRACE START TIME (MM/DD/YYYY) : ");
        text(time.view());
        First_Msg = 1;
        return;
    }
    char* end = cTimeStamp;
    for (const std::string_view piece : {std::string_view("Time Stamp : "), time.view(), std::string_view("\n")}) {
        std::memcpy(end, piece.data(), piece.size());
        end += piece.size();
    }
    *end = '\0';
}
