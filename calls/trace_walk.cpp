#include "calls/trace_walk.h"

#include <algorithm>

#include "driver/main_loop.h"
#include "io/operands.h"
#include "report/state.h"
#include "trace/trace_reader.h"

TraceWalk::~TraceWalk() {
    trace_reader.reset();
    ofp.attach(-1, "");
    ifp.close();
}

bool TraceWalk::open(const char* name, bool hex_trace) {
    const int descriptor = open_operand(name);
    if (descriptor < 0) {
        return false;
    }
    ofp.attach(*this);
    try {
        const Protocol* const protocol = start_trace(descriptor, name, hex_trace, this);
        if (protocol == nullptr) {
            return false;
        }
        report_protocol(*protocol);
        protocol_ = std::string(BRItrace != 0 ? "BRI " : "PRI ") + protocol->terminal_text;
        protocol_.pop_back();
    } catch (const RunAborted& aborted) {
        end_early(aborted.why == Abort::UNREADABLE ? Abort::UNREADABLE : Abort::CUT);
    }
    start_ = std::int64_t{Timeb.time} * 1000 + Timeb.millitm;
    static_cast<void>(ofp.flush());
    return true;
}

bool TraceWalk::next() {
    if (ended_) {
        return false;
    }
    start_pass();
    bool more = true;
    try {
        more = make_pass();
    } catch (const RunAborted& aborted) {
        end_early(aborted.why);
    }
    end_pass();
    ended_ = ended_ || !more;
    return !pass_.records.empty() || pass_.corrupt_data_at != 0 || (more && !ended_);
}

void TraceWalk::start_pass() {
    pass_.records.clear();
    pass_.corrupt_data_at = 0;
    pass_.out_of_step = false;
    text_.clear();
    frame_from_ = 0;
    frame_at_ = line();
    started_within_ = !report_ended_ && trace_reader.within_record();
}

// False at the end of the trace.
bool TraceWalk::make_pass() const {
    if (report_ended_) {
        Record record;
        return trace_reader.next_record(record);  // found() takes note of it
    }
    if (ifp.eof()) {
        return false;
    }
    decode_record();
    return true;
}

void TraceWalk::end_pass() {
    static_cast<void>(ofp.flush());
    const std::string_view text(text_);
    pass_.corrupt_data = text.substr(0, frame_from_);
    pass_.text = text.substr(frame_from_);
    pass_.out_of_step =
        pass_.out_of_step ||
        (!report_ended_ && (started_within_ || trace_reader.within_record() || pass_.records.size() > 1));
}

// The frames of a run that the decoder has ended are still read.
void TraceWalk::end_early(Abort why) {
    pass_.out_of_step = !report_ended_ && !pass_.records.empty();
    report_ended_ = true;
    ended_ = why != Abort::NO_RECORD;
    if (why == Abort::CUT) {
        end_ = End::CUT;
    } else if (why == Abort::UNREADABLE) {
        end_ = End::UNREADABLE;
    }
}

void TraceWalk::found(const Record& record) {
    static_cast<void>(ofp.flush());
    if (record.marker == TIME_STAMP_MARKER) {
        clock_.note(record.octets());
    }
    if (pass_.records.empty() && !started_within_) {
        frame_from_ = text_.size();
        frame_at_ = line();
    }
    pass_.records.push_back({.record = record, .elapsed = clock_.elapsed_ms(), .at = report_ended_ ? 0 : frame_at_});
}

// The reader's words follow an empty line.
void TraceWalk::found_corrupt_data() {
    static_cast<void>(ofp.flush());
    if (pass_.records.empty() && pass_.corrupt_data_at == 0) {
        pass_.corrupt_data_at = line() + 1;
    }
}

void TraceWalk::take(std::string_view bytes) {
    lines_ += static_cast<std::uint64_t>(std::ranges::count(bytes, '\n'));
    if (keep_text_) {
        text_ += bytes;
    }
}
