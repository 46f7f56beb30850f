#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "calls/call.h"
#include "calls/message.h"

// Rows of the tables, and the words in them. Bytes outside of printable ASCII are shown as '?', what is not known as
// '-'.

// Names of the columns, with tabs between them, without a line end.
inline constexpr std::string_view CALL_COLUMNS =
    "no\tstart\tat\tby\tline\tcall\tfrom\tto\tchannel\talert\tring\ttalk\t"
    "result\tcleared\tcause\tlocation\tmessages\ttrace";
inline constexpr std::string_view MESSAGE_COLUMNS =
    "no\ttime\tat\tway\tline\ttei\tcall\tmessage\tfrom\tto\tchannel\tcause\tlocation\ttrace";

// A row, without a line end. trace_start: milliseconds since 1 January 1970 UTC, of the first time-stamp record;
// trace: the trace's name. no: of the message's call, 0 for none.
std::string call_row(const Call& call, std::int64_t trace_start, std::string_view trace);
std::string message_row(const Message& message, std::uint32_t no, std::int64_t trace_start, std::string_view trace);

// The values of columns by themselves.
std::string printable(std::string_view bytes);                                         // "-" when there are none
std::string cause_text(const std::optional<Cause>& cause);                             // "17 user busy"
std::string location_text(const std::optional<Cause>& cause);                          // "user"
std::string time_text(std::optional<std::int64_t> elapsed, std::int64_t trace_start);  // "2026-12-16 10:00:18.376"
std::string seconds_text(std::optional<std::int64_t> milliseconds);                    // "21.050"
std::string_view result_text(Result result);                                           // "no-answer"
std::string_view cleared_text(Cleared cleared);  // "R", "T", "restart", ..., "open"
