#include "calls/columns.h"

#include <array>
#include <ctime>

#include "calls/q850.h"

namespace {

constexpr std::string_view NOT_KNOWN = "-";

// 0 is no number.
std::string number_text(std::uint64_t number) { return number == 0 ? std::string(NOT_KNOWN) : std::to_string(number); }

template <typename Number>
std::string number_text(const std::optional<Number>& number) {
    return number ? std::to_string(*number) : std::string(NOT_KNOWN);
}

std::string_view side_text(bool transmitted) { return transmitted ? "T" : "R"; }

void add(std::string& row, std::string_view column) {
    row += column;
    row += '\t';
}

// Number with at least so many digits.
void add_digits(std::string& text, std::int64_t number, std::size_t digits) {
    const std::string all = std::to_string(number);
    text.append(digits > all.size() ? digits - all.size() : 0, '0');
    text += all;
}

}  // namespace

std::string printable(std::string_view bytes) {
    std::string text(bytes.empty() ? NOT_KNOWN : bytes);
    for (char& byte : text) {
        byte = byte < ' ' || byte > '~' ? '?' : byte;
    }
    return text;
}

std::string cause_text(const std::optional<Cause>& cause) {
    if (!cause) {
        return std::string(NOT_KNOWN);
    }
    std::string text = std::to_string(cause->value);
    if (!cause->words.empty()) {
        text += ' ';
        text += cause->words;
    }
    return text;
}

std::string location_text(const std::optional<Cause>& cause) {
    if (!cause || !cause->location) {
        return std::string(NOT_KNOWN);
    }
    const std::string_view words = location_words(*cause->location);
    return words.empty() ? std::to_string(*cause->location) : std::string(words);
}

std::string time_text(std::optional<std::int64_t> elapsed, std::int64_t trace_start) {
    if (!elapsed) {
        return std::string(NOT_KNOWN);
    }
    const std::int64_t time = trace_start + *elapsed;
    const std::int64_t milliseconds = ((time % 1000) + 1000) % 1000;
    const std::time_t seconds = (time - milliseconds) / 1000;
    std::tm parts{};
    if (localtime_r(&seconds, &parts) == nullptr) {
        return std::string(NOT_KNOWN);
    }
    std::string text;
    add_digits(text, std::int64_t{parts.tm_year} + 1900, 4);
    add_digits(text += '-', parts.tm_mon + 1, 2);
    add_digits(text += '-', parts.tm_mday, 2);
    add_digits(text += ' ', parts.tm_hour, 2);
    add_digits(text += ':', parts.tm_min, 2);
    add_digits(text += ':', parts.tm_sec, 2);
    add_digits(text += '.', milliseconds, 3);
    return text;
}

std::string seconds_text(std::optional<std::int64_t> milliseconds) {
    if (!milliseconds) {
        return std::string(NOT_KNOWN);
    }
    const std::int64_t size = *milliseconds < 0 ? -*milliseconds : *milliseconds;
    std::string text = *milliseconds < 0 ? "-" : "";
    text += std::to_string(size / 1000) + '.';
    add_digits(text, size % 1000, 3);
    return text;
}

std::string_view result_text(Result result) {
    switch (result) {
        case Result::OPEN: return "open";
        case Result::ANSWERED: return "answered";
        case Result::BUSY: return "busy";
        case Result::NO_ANSWER: return "no-answer";
        case Result::REJECTED: return "rejected";
        case Result::ABANDONED: return "abandoned";
        case Result::FAILED: return "failed";
    }
    return NOT_KNOWN;
}

std::string_view cleared_text(Cleared cleared) {
    switch (cleared) {
        case Cleared::OPEN: return "open";
        case Cleared::RECEIVED: return "R";
        case Cleared::TRANSMITTED: return "T";
        case Cleared::RESTART: return "restart";
        case Cleared::STATUS: return "status";
        case Cleared::SUSPEND: return "suspend";
    }
    return NOT_KNOWN;
}

std::string call_row(const Call& call, std::int64_t trace_start, std::string_view trace) {
    std::string row;
    add(row, number_text(call.no));
    add(row, time_text(call.start, trace_start));
    add(row, number_text(call.at));
    add(row, side_text(call.by_transmitted));
    add(row, number_text(call.line));
    add(row, call.reference);
    add(row, printable(call.from));
    add(row, printable(call.to));
    add(row, printable(call.channel));
    add(row, seconds_text(call.alert));
    add(row, seconds_text(call.ring));
    add(row, seconds_text(call.talk));
    add(row, result_text(call.result));
    add(row, cleared_text(call.cleared));
    add(row, cause_text(call.cause));
    add(row, location_text(call.cause));
    add(row, number_text(call.messages));
    return row + printable(trace);
}

std::string message_row(const Message& message, std::uint32_t no, std::int64_t trace_start, std::string_view trace) {
    std::string row;
    add(row, number_text(no));
    add(row, time_text(message.elapsed, trace_start));
    add(row, number_text(message.at));
    add(row, side_text(message.transmitted));
    add(row, number_text(message.line));
    add(row, number_text(message.tei));
    add(row, printable(message.reference));
    add(row, message.name);
    add(row, printable(message.from));
    add(row, printable(message.to));
    add(row, printable(message.channel));
    add(row, cause_text(message.cause));
    add(row, location_text(message.cause));
    return row + printable(trace);
}
