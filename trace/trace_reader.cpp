#include "trace/trace_reader.h"

#include <algorithm>

InputStream ifp;
TraceReader trace_reader(ifp);

namespace {

bool is_marker(std::uint8_t byte) {
    return byte == RECEIVE_MARKER || byte == TRANSMIT_MARKER || byte == DEBUG_MARKER || byte == TIME_STAMP_MARKER;
}

}  // namespace

void abort_run(Abort why) { throw RunAborted{why}; }

void TraceReader::reset(ReaderObserver* observer) {
    observer_ = observer;
    DataBuffer = {};
    BlockSize = 0;
    marker_found_ = false;
}

// Takes back the last byte that was handed out.
void TraceReader::ungetRingBuff() {
    DataBuffer.ReadPtr = prevRingPtr(DataBuffer.ReadPtr);
    ++DataBuffer.Count;
}

// Counts bytes that were stored from `WritePtr` on. They must not go past the last slot.
void TraceReader::putRingBuff(std::size_t count) {
    const auto bytes = static_cast<std::int32_t>(count);
    DataBuffer.WritePtr = DataBuffer.WritePtr + bytes == RING_SIZE ? 0 : DataBuffer.WritePtr + bytes;
    DataBuffer.Count += bytes;
}

// Scans one or more numbers of the text into the ring, at most `most`. Only the low 8 bits of a number count. False at
// the end of the text.
bool TraceReader::scan_ahead(std::int32_t most) {
    const auto slots = static_cast<std::size_t>(std::min(most, RING_SIZE - DataBuffer.WritePtr));
    std::uint8_t* const slot = DataBuffer.Data.data() + DataBuffer.WritePtr;
    std::size_t count = stream_.scan_pairs({slot, slots});
    if (count == 0) {
        std::uint32_t number = 0;
        if (!stream_.scan(number)) {
            return false;
        }
        *slot = static_cast<std::uint8_t>(number);
        count = 1;
    }
    putRingBuff(count);
    return true;
}

// The next byte, from the ring if it holds one, else from the text.
bool TraceReader::readHexNum(std::uint8_t& byte) {
    if (DataBuffer.Count == 0 && !scan_ahead(1)) {
        return false;
    }
    byte = getRingBuff();
    return true;
}

// Takes bytes up to and including the next record marker. Lists those before it in the report, 27 on a line.
bool TraceReader::findBlockStart() {
    constexpr std::int32_t LAST_COLUMN = 26;
    std::int32_t column = 0;
    bool skipped = false;
    std::uint8_t byte = 0;
    bool more = readHexNum(byte);
    for (; more && !is_marker(byte); more = readHexNum(byte)) {
        if (!skipped) {
            tell_of_corrupt_data();
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
bool TraceReader::read_ahead(std::int32_t need) {
    while (DataBuffer.Count < need) {
        if (!scan_ahead(need - DataBuffer.Count)) {
            return false;
        }
    }
    return true;
}

// The look-ahead check: after the record comes a marker, or the end of the text.
bool TraceReader::verifyBlock(bool atEnd) const {
    const std::int32_t next = (BlockStartPtr + BlockSize) % RING_SIZE;
    return atEnd || is_marker(DataBuffer.Data[static_cast<std::size_t>(next)]);
}

// Reads the line byte (basic rate) and the length byte, which follow a marker.
bool TraceReader::read_record_head(std::uint8_t& length) {
    std::uint8_t line_byte = 0;
    return (BRItrace == 0 || readHexNum(line_byte)) && readHexNum(length);
}

// Finds and checks the next record, and steps back to its marker. Not inlined, because fetchChar() is called for every
// byte.
[[gnu::noinline]] bool TraceReader::getBlock() {
    const std::int32_t header = BRItrace != 0 ? 3 : 2;
    while (findBlockStart()) {
        marker_found_ = true;
        BlockStartPtr = prevRingPtr(DataBuffer.ReadPtr);
        std::uint8_t length = 0;
        if (!read_record_head(length)) {
            return false;
        }
        BlockSize = length + header;
        const bool atEnd = !read_ahead(length + 1);
        if (DataBuffer.Count < length) {
            return false;  // in the last record, only the byte after it may be missing
        }
        marker_found_ = false;
        if (verifyBlock(atEnd)) {
            DataBuffer.ReadPtr = BlockStartPtr;
            DataBuffer.Count += header;
            tell_of_record();
            return true;
        }
        // This is no record: the search goes on after the marker.
        for (std::int32_t step = 1; step < header; ++step) {
            ungetRingBuff();
        }
        tell_of_corrupt_data();
        text("\nCORRUPT DATA ENCOUNTERED: ");
        upper_hex(DataBuffer.Data[static_cast<std::size_t>(prevRingPtr(DataBuffer.ReadPtr))]);
        text("\n");
    }
    return false;
}

void TraceReader::tell_of_corrupt_data() const {
    if (observer_ != nullptr) {
        observer_->found_corrupt_data();
    }
}

void TraceReader::tell_of_record() const {
    if (observer_ == nullptr) {
        return;
    }
    Record record;
    std::int32_t position = BlockStartPtr;
    const auto next_byte = [&] {
        const std::uint8_t byte = DataBuffer.Data[static_cast<std::size_t>(position)];
        position = nextRingPtr(position);
        return byte;
    };
    record.marker = next_byte();
    record.line = BRItrace != 0 ? next_byte() : 0;
    record.length = next_byte();
    std::generate_n(record.data.begin(), record.length, next_byte);
    observer_->found(record);
}

bool TraceReader::next_record(Record& record) {
    while (within_record()) {
        fetchChar();
    }
    if (stream_.eof()) {
        return false;
    }
    record.marker = fetchChar();
    record.line = BRItrace != 0 ? fetchChar() : 0;
    record.length = fetchChar();
    std::generate_n(record.data.begin(), record.length, [this] { return fetchChar(); });
    return true;
}

void TraceReader::abort_at_end() {
    if (stream_.failed() != nullptr) {
        abort_run(Abort::UNREADABLE);
    }
    text("\n    ERROR ABORT ");
    abort_run(marker_found_ ? Abort::CUT : Abort::ENDED);
}

void input() {
    value = trace_reader.fetchChar();
    count_down(msglen);
}

void inputData(std::int32_t& x) { x = trace_reader.fetchChar(); }
