#pragma once

#include <cstdint>
#include <string>

#include "calls/message.h"
#include "calls/trace_walk.h"

// Counts the places where a trace is damaged: corrupt data between records; a frame that is cut, or that the decoder
// reads over. What follows such a frame without a sound one between belongs to the same place. A message with an empty
// call reference is no damage, though the decoder may read over it.
class DamageCount {
 public:
    // To be told of the messages of a pass, each before the pass itself.
    void note(const Message& message);

    // To be told of every pass. Gives the report line where a new damaged place begins; 0 when none does.
    std::uint64_t note(const Pass& pass);

    [[nodiscard]] std::uint64_t places() const { return places_; }

    // "3 damaged places, first at report line 8427"
    [[nodiscard]] std::string text() const;

 private:
    std::uint64_t places_ = 0;
    std::uint64_t first_at_ = 0;
    bool within_place_ = false;
    bool cut_message_ = false;      // of the pass at hand
    bool empty_reference_ = false;  // what the decoder is out of step for
};

// Says on standard error where a trace that was gone through is damaged, and when it ends early. False when it was not
// read to its end.
bool tell_damage(const std::string& trace, const TraceWalk& walk, const DamageCount& damage);
