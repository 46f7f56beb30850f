#include "calls/damage.h"

#include "io/diagnostics.h"

void DamageCount::note(const Message& message) {
    cut_message_ = cut_message_ || message.damaged;
    empty_reference_ = empty_reference_ || (message.is_message && message.reference.empty());
}

std::uint64_t DamageCount::note(const Pass& pass) {
    empty_reference_ = empty_reference_ && pass.out_of_step;
    const bool bad_frame = cut_message_ || (pass.out_of_step && !empty_reference_);
    cut_message_ = false;
    const bool corrupt_data = pass.corrupt_data_at != 0;
    const bool begins = !within_place_ && (bad_frame || corrupt_data);
    within_place_ = bad_frame;
    if (!begins) {
        return 0;
    }
    const std::uint64_t frame_at = pass.records.empty() ? 0 : pass.records.front().at;
    const std::uint64_t at = corrupt_data ? pass.corrupt_data_at : frame_at;
    if (places_++ == 0) {
        first_at_ = at;
    }
    return at;
}

std::string DamageCount::text() const {
    return std::to_string(places_) + (places_ == 1 ? " damaged place, at" : " damaged places, first at") +
           " report line " + std::to_string(first_at_);
}

bool tell_damage(const std::string& trace, const TraceWalk& walk, const DamageCount& damage) {
    if (damage.places() != 0) {
        say(trace + ": " + damage.text() + "; calls may be missing");
    }
    if (walk.end() == TraceWalk::End::CUT) {
        say(trace + ": the trace is cut, at report line " + std::to_string(walk.line()) + "; calls may be missing");
    } else if (walk.end() == TraceWalk::End::UNREADABLE) {
        say(trace + ": could not read all of it");
    }
    return walk.end() == TraceWalk::End::WHOLE;
}
