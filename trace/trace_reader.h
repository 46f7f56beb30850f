#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "io/input_stream.h"
#include "report/lines.h"
#include "report/state.h"
#include "trace/format.h"

// The trace as a stream of bytes, record after record: marker, line byte (basic rate), length byte, data. A record is
// handed out only when the byte after it is a record marker again, or the trace ends there; other bytes are listed in
// the report as corrupt data and skipped. The stream does not stop at the end of a record.

// Why a run ends early.
enum class Abort {
    CUT,         // the trace ends within a record
    ENDED,       // octets were wanted after its last record
    UNREADABLE,  // the system cannot read on
    NO_RECORD,   // DASS2 and DPNSS: no record where one is due
};

// The one way out of a run that cannot go on: thrown by abort_run() alone, caught once by each program.
struct RunAborted {
    Abort why;
};

[[noreturn, gnu::cold]] void abort_run(Abort why);

// A record whole.
struct Record {
    std::int32_t marker = 0;  // one of the four record markers
    std::int32_t line = 0;    // line byte, 0..255; 0 on primary rate
    std::int32_t length = 0;  // octets of data, 0..255
    std::array<std::uint8_t, LONGEST_DATA> data;

    [[nodiscard]] std::span<const std::uint8_t> octets() const {
        return {data.data(), static_cast<std::size_t>(length)};
    }
};

// Somebody who is told what the reader finds while the decoders read.
class ReaderObserver {
 public:
    ReaderObserver() = default;
    virtual ~ReaderObserver() = default;
    ReaderObserver(const ReaderObserver&) = delete;
    ReaderObserver& operator=(const ReaderObserver&) = delete;

    // A record has been found, and its marker is handed out next.
    virtual void found(const Record& record) = 0;

    // Corrupt data are about to be listed in the report.
    virtual void found_corrupt_data() = 0;
};

// Reads the records of one trace after the other.
class TraceReader {
 public:
    explicit TraceReader(InputStream& stream) : stream_(stream) {}

    // Forgets all bytes read ahead and the current record: the next byte is looked for in the text. From then on the
    // observer is told; null for none.
    void reset(ReaderObserver* observer = nullptr);

    // The next byte of the current record, or the marker of the next one when that is used up. Without a further record
    // the run is aborted, with "ERROR ABORT" in the report when the trace ends there.
    std::uint8_t fetchChar() {
        if (BlockSize == 0 && !getBlock()) {
            abort_at_end();
        }
        --BlockSize;
        return getRingBuff();
    }

    // Takes the next record, framed as the decoders see it: what is unread of the current one is skipped, corrupt data
    // before it are listed in the report. False when a read has met the end of the trace after the record before; a
    // trace that ends within a record aborts the run.
    bool next_record(Record& record);

    // Whether bytes of the current record have not been handed out yet.
    [[nodiscard]] bool within_record() const { return BlockSize != 0; }

    // Aborts the run as a read does that meets the end of the trace.
    [[noreturn, gnu::cold]] void abort_at_end();

 private:
    // The longest record, held whole from its marker, and the byte after it.
    static constexpr std::int32_t RING_SIZE = LONGEST_RECORD + 1;

    // Bytes scanned from the text and not yet handed out. It never overflows: no more is read ahead than a record
    // needs.
    struct RingBuffer {
        std::array<std::uint8_t, RING_SIZE> Data;
        std::int32_t ReadPtr;   // next byte to hand out
        std::int32_t WritePtr;  // where the next byte scanned goes
        std::int32_t Count;     // bytes held
    };

    static std::int32_t nextRingPtr(std::int32_t position) { return position == RING_SIZE - 1 ? 0 : position + 1; }
    static std::int32_t prevRingPtr(std::int32_t position) { return position == 0 ? RING_SIZE - 1 : position - 1; }

    std::uint8_t getRingBuff() {
        const std::uint8_t byte = DataBuffer.Data[static_cast<std::size_t>(DataBuffer.ReadPtr)];
        DataBuffer.ReadPtr = nextRingPtr(DataBuffer.ReadPtr);
        --DataBuffer.Count;
        return byte;
    }

    void ungetRingBuff();
    void putRingBuff(std::size_t count);
    bool scan_ahead(std::int32_t most);
    bool readHexNum(std::uint8_t& byte);
    bool findBlockStart();
    bool read_ahead(std::int32_t need);
    [[nodiscard]] bool verifyBlock(bool atEnd) const;
    bool read_record_head(std::uint8_t& length);
    bool getBlock();
    void tell_of_record() const;
    void tell_of_corrupt_data() const;

    InputStream& stream_;
    ReaderObserver* observer_ = nullptr;
    bool marker_found_ = false;  // of a record that is not yet known to be whole
    RingBuffer DataBuffer{};
    std::int32_t BlockSize = 0;      // bytes of the current record not yet handed out; 0: no current record
    std::int32_t BlockStartPtr = 0;  // position of the current record's marker
};

// The trace, or the hex text made from a binary one; opened by each program. And what reads it.
extern InputStream ifp;
extern TraceReader trace_reader;

// Takes the next byte into `value` (0..255) and lowers `msglen` by one. Aborts the run as fetchChar() does.
void input();

// Reads the next octet into `value`, then begins its line. The indent is written before any test on the octet; where
// no text of its own follows, it stays on the line and the next text continues it.
inline void octet() {
    input();
    output(flag);
}

// Takes the next byte into x (0..255); `msglen` is left alone. The end is input()'s.
void inputData(std::int32_t& x);
