#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "io/output_stream.h"
#include "trace/clock.h"
#include "trace/trace_start.h"

// A record of a trace, and what is known beside its bytes.
struct FoundRecord {
    Record record;
    std::optional<std::int64_t> elapsed;  // milliseconds from the first time-stamp record to the last one so far
    std::uint64_t at = 0;                 // report line where its pass begins its frame; 0: after the end of the report
};

// What one pass of the decoder met and wrote.
struct Pass {
    std::vector<FoundRecord> records;   // one as a rule; none where it decoded what the pass before left unread
    std::string_view text;              // the lines it wrote, from its frame on; none when they are not kept
    std::string_view corrupt_data;      // the lines about corrupt data before these
    std::uint64_t corrupt_data_at = 0;  // report line of their words; 0: there are none
    bool out_of_step = false;           // it took octets of a further record, or left some of its own unread
};

// Goes through the records of a trace while the decoder runs beside it, so that both are known: what a record holds,
// and where and how the report shows it. The report itself is not written.
class TraceWalk : private ReaderObserver, private OutputSink {
 public:
    enum class End : std::uint8_t {
        WHOLE,       // all records were read
        CUT,         // the trace ends within a record, or before its first
        UNREADABLE,  // the system could not read on
    };

    // keep_text: whether the lines of each pass are wanted.
    explicit TraceWalk(bool keep_text) : keep_text_(keep_text) {}
    ~TraceWalk() override;

    // Begins to read a trace ("-": standard input); the name must outlive the walk. To be called once. False when it
    // cannot be opened, or its header not be read; errno says why.
    [[nodiscard]] bool open(const char* name, bool hex_trace);

    // Makes the next pass. What it gives stands until the next call. False at the end of the trace.
    [[nodiscard]] bool next();
    [[nodiscard]] const Pass& pass() const { return pass_; }

    // How the trace ended, once next() has given false, and the report's line there.
    [[nodiscard]] End end() const { return end_; }
    [[nodiscard]] std::uint64_t line() const { return lines_ + 1; }

    // The trace's protocol, as "PRI NET5"; its start in milliseconds since 1 January 1970 UTC.
    [[nodiscard]] const std::string& protocol() const { return protocol_; }
    [[nodiscard]] std::int64_t start() const { return start_; }

 private:
    void found(const Record& record) override;
    void found_corrupt_data() override;
    void take(std::string_view bytes) override;
    void start_pass();
    void end_pass();
    [[nodiscard]] bool make_pass() const;
    void end_early(Abort why);

    const bool keep_text_;
    std::string protocol_;
    std::int64_t start_ = 0;
    TraceClock clock_;
    std::uint64_t lines_ = 0;     // ended in the report so far
    std::string text_;            // of the pass
    std::size_t frame_from_ = 0;  // where in it the lines of the frame begin
    std::uint64_t frame_at_ = 0;  // the report's line there
    bool started_within_ = false;
    bool report_ended_ = false;  // the decoder has ended its run: records alone are read
    bool ended_ = false;
    End end_ = End::WHOLE;
    Pass pass_;
};
