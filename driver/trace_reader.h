#pragma once

#include <cstdint>

// The trace as a stream of bytes, record after record: marker, line byte (basic rate), length byte, data. A record is
// handed out only when the byte behind it is a record marker again, or the trace ends there; other bytes are listed in
// the report as corrupt data and skipped. The stream does not stop at the end of a record.

// Record markers.
constexpr std::int32_t RECEIVE_MARKER = 'R';
constexpr std::int32_t TRANSMIT_MARKER = 'T';
constexpr std::int32_t DEBUG_MARKER = 'D';
constexpr std::int32_t TIME_STAMP_MARKER = 'P';

// Forgets all bytes read ahead and the current record: the next byte is looked for in the text.
void reset_reader();

// Takes the next byte into `value` (0..255) and lowers `msglen` by one. Without a further record the run ends with
// "ERROR ABORT" in the report and status 1.
void input();

// Takes the next byte into x (0..255); `msglen` is left alone. The end is input()'s.
void inputData(std::int32_t& x);

// Ends the run as input() does when the trace ends too early.
[[noreturn]] void abort_run();
