#include "page/call_choice.h"

void CallChoice::note(const PageFrame& frame) {
    ++noted_;
    if (calls_.contains(frame.added.no)) {
        last_frames_[frame.added.no] = noted_;
    }
}

bool CallChoice::shows(const PageFrame& frame) {
    ++asked_;
    if (all()) {
        return true;
    }
    const std::uint32_t call = frame.added.no;
    if (!calls_.contains(call)) {
        return !frame.has_content && !going_on_.empty();
    }
    going_on_.insert(call);
    if (asked_ == last_frames_[call]) {
        going_on_.erase(call);
    }
    return true;
}
