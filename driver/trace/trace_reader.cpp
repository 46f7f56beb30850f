#include "driver/trace/trace_reader.h"

#include <algorithm>
#include <array>

#include "driver/trace/trace_stream.h"
#include "report/run_end.h"

namespace {

// The longest record, held whole from its marker, and the look-ahead byte behind it.
constexpr std::int32_t RING_SIZE = LONGEST_RECORD + 1;

// Bytes scanned from the text and not yet handed out. It never overflows: no more is read ahead than a record needs.
struct RingBuffer {
    std::array<std::uint8_t, RING_SIZE> Data;
    std::int32_t ReadPtr;   // next byte to hand out
    std::int32_t WritePtr;  // where the next byte scanned goes
    std::int32_t Count;     // bytes held
};

RingBuffer DataBuffer;
std::int32_t BlockSize;      // bytes of the current record not yet handed out; 0: no current record
std::int32_t BlockStartPtr;  // position of the current record's marker

std::int32_t nextRingPtr(std::int32_t position) { return position == RING_SIZE - 1 ? 0 : position + 1; }

std::int32_t prevRingPtr(std::int32_t position) { return position == 0 ? RING_SIZE - 1 : position - 1; }

std::uint8_t getRingBuff() {
    const std::uint8_t byte = DataBuffer.Data[static_cast<std::size_t>(DataBuffer.ReadPtr)];
    DataBuffer.ReadPtr = nextRingPtr(DataBuffer.ReadPtr);
    --DataBuffer.Count;
    return byte;
}

// Takes back the byte handed out last.
void ungetRingBuff() {
    DataBuffer.ReadPtr = prevRingPtr(DataBuffer.ReadPtr);
    ++DataBuffer.Count;
}

// Notes bytes that were stored from `WritePtr` on, not beyond the last slot.
void putRingBuff(std::size_t count) {
    const auto bytes = static_cast<std::int32_t>(count);
    DataBuffer.WritePtr = DataBuffer.WritePtr + bytes == RING_SIZE ? 0 : DataBuffer.WritePtr + bytes;
    DataBuffer.Count += bytes;
}

// Scans at least one number of the text into the ring and at the most `most`; of a number only the low 8 bits count.
// False at the end of the text.
bool scan_ahead(std::int32_t most) {
    const auto slots = static_cast<std::size_t>(std::min(most, RING_SIZE - DataBuffer.WritePtr));
    std::uint8_t* const slot = DataBuffer.Data.data() + DataBuffer.WritePtr;
    std::size_t count = ifp.scan_pairs({slot, slots});
    if (count == 0) {
        std::uint32_t number = 0;
        if (!ifp.scan(number)) {
            return false;
        }
        *slot = static_cast<std::uint8_t>(number);
        count = 1;
    }
    putRingBuff(count);
    return true;
}

// The next byte, from the ring if it holds one, else from the text.
bool readHexNum(std::uint8_t& byte) {
    if (DataBuffer.Count == 0 && !scan_ahead(1)) {
        return false;
    }
    byte = getRingBuff();
    return true;
}

bool is_marker(std::uint8_t byte) {
    return byte == RECEIVE_MARKER || byte == TRANSMIT_MARKER || byte == DEBUG_MARKER || byte == TIME_STAMP_MARKER;
}

// Takes bytes up to and including the next record marker, and lists those in front of it, 27 to a line.
bool findBlockStart() {
    constexpr std::int32_t LAST_COLUMN = 26;
    std::int32_t column = 0;
    bool skipped = false;
    std::uint8_t byte = 0;
    bool more = readHexNum(byte);
    for (; more && !is_marker(byte); more = readHexNum(byte)) {
        if (!skipped) {
            text("\nCORRUPT DATA ENCOUNTERED:\n");
            skipped = true;
        }
        upper_hex(byte);
        text(" ");
        if (column == LAST_COLUMN) {
            text("\n");
            column = 0;
        } else {
            ++column;
        }
    }
    if (skipped) {
        text("\n");
    }
    return more;
}

// Reads ahead until the ring holds `need` bytes. False when the text ends first.
bool read_ahead(std::int32_t need) {
    while (DataBuffer.Count < need) {
        if (!scan_ahead(need - DataBuffer.Count)) {
            return false;
        }
    }
    return true;
}

// The look-ahead check: behind the record stands a marker, or the end of the text.
bool verifyBlock(bool atEnd) {
    const std::int32_t behind = (BlockStartPtr + BlockSize) % RING_SIZE;
    return atEnd || is_marker(DataBuffer.Data[static_cast<std::size_t>(behind)]);
}

// Reads the line byte (basic rate) and the length byte behind a marker.
bool read_header(std::uint8_t& length) {
    std::uint8_t line_byte = 0;
    return (BRItrace == 0 || readHexNum(line_byte)) && readHexNum(length);
}

// Finds, frames and checks the next record, and steps back to its marker. Not inlined: fetchChar() is called for every
// byte.
[[gnu::noinline]] bool getBlock() {
    const std::int32_t header = BRItrace != 0 ? 3 : 2;
    while (findBlockStart()) {
        BlockStartPtr = prevRingPtr(DataBuffer.ReadPtr);
        std::uint8_t length = 0;
        if (!read_header(length)) {
            return false;
        }
        BlockSize = length + header;
        const bool atEnd = !read_ahead(length + 1);
        if (DataBuffer.Count < length) {
            return false;  // the last record may lack its look-ahead byte, but none of its own
        }
        if (verifyBlock(atEnd)) {
            DataBuffer.ReadPtr = BlockStartPtr;
            DataBuffer.Count += header;
            return true;
        }
        // No record after all: the scan goes on behind the marker.
        for (std::int32_t step = 1; step < header; ++step) {
            ungetRingBuff();
        }
        text("\nCORRUPT DATA ENCOUNTERED: ");
        upper_hex(DataBuffer.Data[static_cast<std::size_t>(prevRingPtr(DataBuffer.ReadPtr))]);
        text("\n");
    }
    return false;
}

// The next byte of the current record, or the marker of the next one when that is used up.
std::uint8_t fetchChar() {
    if (BlockSize == 0 && !getBlock()) {
        abort_run();
    }
    --BlockSize;
    return getRingBuff();
}

}  // namespace

void reset_reader() {
    DataBuffer = {};
    BlockSize = 0;
}

void input() {
    value = fetchChar();
    count_down(msglen);
}

void inputData(std::int32_t& x) { x = fetchChar(); }

void abort_run() {
    if (ifp.failed() == nullptr) {  // else the trace itself may go on
        text("\n    ERROR ABORT ");
    }
    end_run(1);
}

bool next_record(Record& record) {
    if (ifp.eof()) {
        return false;
    }
    inputData(record.marker);
    record.line = 0;
    if (BRItrace != 0) {
        inputData(record.line);
    }
    inputData(record.length);
    for (std::int32_t i = 0; i < record.length; ++i) {
        record.data[static_cast<std::size_t>(i)] = fetchChar();
    }
    return true;
}
