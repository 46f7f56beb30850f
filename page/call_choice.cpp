#include "page/call_choice.h"

#include <algorithm>

void CallChoice::note(const PageFrame& frame) {
    ++noted_;
    if (calls_.contains(frame.added.no)) {
        last_frames_[frame.added.no] = noted_;
    }
}

bool CallChoice::shows_damage(const std::vector<PageFrame>& before) const {
    return all() || !going_on_.empty() ||
           std::ranges::any_of(before, [&](const PageFrame& frame) { return calls_.contains(frame.added.no); });
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
