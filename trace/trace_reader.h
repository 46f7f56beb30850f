#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "io/input_stream.h"
#include "io/interface.h"
#include "report/lines.h"
#include "report/state.h"
#include "trace/format.h"

// The trace as a stream of bytes, record after record: marker, line byte (basic rate), length byte, data. A record is
// handed out only when a record marker follows it, or the trace ends after it. Other bytes are listed in the report as
// corrupt data and skipped. The stream does not stop at the end of a record: a decoder may read on into the next one.

// Why a run ends early.
enum class Abort {
    CUT,         // the trace ends within a record
    ENDED,       // octets were wanted after its last record
    UNREADABLE,  // a read failed
    NO_RECORD,   // DASS2 and DPNSS: no record where one must begin
};

// The only way out of a run that cannot go on. Only abort_run() throws it; each program catches it in one place.
struct RunAborted {
    Abort why;
};

[[noreturn, gnu::cold]] void abort_run(Abort why);

// A whole record.
struct Record {
    std::int32_t marker = 0;  // one of the four record markers
    std::int32_t line = 0;    // line byte, 0..255; 0 on primary rate
    std::int32_t length = 0;  // octets of data, 0..255
    std::array<std::uint8_t, LONGEST_DATA> data;

    [[nodiscard]] std::span<const std::uint8_t> octets() const {
        return {data.data(), static_cast<std::size_t>(length)};
    }
};

// Is told what the reader finds while the decoders read.
class ReaderObserver : public Interface {
 public:
    // A record has been found. Its marker is the next byte that is handed out.
    virtual void found(const Record& record) = 0;

    // Corrupt data are about to be listed in the report.
    virtual void found_corrupt_data() = 0;
};

// Reads the records of a trace; after reset(), those of another one.
class TraceReader {
 public:
    explicit TraceReader(InputStream& stream) : stream_(stream) {}

    // Forgets the current record and all bytes read ahead, so that the next record is searched in the text. From then
    // on the observer is told what is found; null for none.
    void reset(ReaderObserver* observer = nullptr);

    // The next byte of the current record; after its last byte, the marker of the next record. If there is no further
    // record, the run is aborted as abort_at_end() does.
    std::uint8_t fetchChar() {
        if (BlockSize == 0 && !getBlock()) {
            abort_at_end();
        }
        --BlockSize;
        return getRingBuff();
    }

    // Takes the next record as the decoders would see it. Unread bytes of the current record are skipped; corrupt data
    // before the next one are listed in the report. False when a read has met the end of the trace and no record is
    // left. A trace that ends within a record aborts the run.
    bool next_record(Record& record);

    // Whether bytes of the current record have not been handed out yet.
    [[nodiscard]] bool within_record() const { return BlockSize != 0; }

    // Aborts the run because no further byte can be read. If the reason is the end of the trace, and not a failed read,
    // writes "ERROR ABORT" into the report.
    [[noreturn, gnu::cold]] void abort_at_end();

 private:
    // Holds the longest record, from its marker on, and the byte after it.
    static constexpr std::int32_t RING_SIZE = LONGEST_RECORD + 1;

    // Bytes scanned from the text and not yet handed out. It never overflows: no more is read ahead than a record
    // needs.
    struct RingBuffer {
        std::array<std::uint8_t, RING_SIZE> Data;
        std::int32_t ReadPtr;   // next byte to hand out
        std::int32_t WritePtr;  // where the next scanned byte goes
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

// The trace, or the hex text made from a binary trace, which each program opens; and the reader of its records.
extern InputStream ifp;
extern TraceReader trace_reader;

// Reads the next byte into `value` (0..255) and lowers `msglen` by one. Aborts the run as fetchChar() does.
void input();

// Reads the next octet into `value`, then begins its line by writing the indent. This comes before any test of the
// octet: if the octet then has no text of its own, the indent stays on the line and the next text continues that line.
inline void octet() {
    input();
    output(flag);
}

// Reads the next byte into x (0..255) and leaves `msglen` as it is. Aborts the run as fetchChar() does.
void inputData(std::int32_t& x);
