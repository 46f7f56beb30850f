#pragma once

#include <array>
#include <cstdint>

#include "driver/trace/format.h"
#include "report/lines.h"
#include "report/state.h"

// The trace as a stream of bytes, record after record: marker, line byte (basic rate), length byte, data. A record is
// handed out only when the byte behind it is a record marker again, or the trace ends there; other bytes are listed in
// the report as corrupt data and skipped. The stream does not stop at the end of a record.

// Forgets all bytes read ahead and the current record: the next byte is looked for in the text.
void reset_reader();

// Takes the next byte into `value` (0..255) and lowers `msglen` by one. Without a further record the run ends with
// "ERROR ABORT" in the report and status 1.
void input();

// Reads the next octet into `value`, then begins its line. The indent is written before any test on the octet; where
// no text of its own follows, it stays on the line and the next text continues it.
inline void octet() {
    input();
    output(flag);
}

// Takes the next byte into x (0..255); `msglen` is left alone. The end is input()'s.
void inputData(std::int32_t& x);

// Ends the run as input() does when the trace ends too early.
[[noreturn]] void abort_run();

// A record whole.
struct Record {
    std::int32_t marker;  // one of the four record markers
    std::int32_t line;    // line byte, 0..255; 0 on primary rate
    std::int32_t length;  // octets of data, 0..255
    std::array<std::uint8_t, LONGEST_DATA> data;
};

// Takes the next record, framed as the decoders see it: corrupt data in front of it is listed in the report. False
// when a read has met the end of the trace behind the record before; a trace that ends within a record ends the run as
// input() does. To be called at the start of a record only.
bool next_record(Record& record);
