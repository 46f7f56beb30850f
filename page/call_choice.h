#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <vector>

#include "page/page_frame.h"

// What a page shows of a trace: all of it; or of some calls their frames, and damage and empty frames of layer 2 from
// the first to the last frame of each, but no lines of the report that can hold octets of other calls. For these the
// trace is gone through twice.
class CallChoice {
 public:
    // calls: the numbers of those chosen; none: all.
    explicit CallChoice(const std::vector<std::uint32_t>& calls) : calls_(calls.begin(), calls.end()) {}

    [[nodiscard]] bool all() const { return calls_.empty(); }
    [[nodiscard]] bool has(std::uint32_t call) const { return all() || calls_.contains(call); }

    // The first time through: takes note of every frame.
    void note(const PageFrame& frame);

    // The second time: whether the page shows damage before the frames of the next pass; and a frame, to be asked of
    // every one.
    [[nodiscard]] bool shows_damage(const std::vector<PageFrame>& before) const;
    [[nodiscard]] bool shows(const PageFrame& frame);

 private:
    const std::set<std::uint32_t> calls_;
    std::map<std::uint32_t, std::uint64_t> last_frames_;  // of each call chosen, counted from 1 on
    std::uint64_t noted_ = 0;
    std::uint64_t asked_ = 0;
    std::set<std::uint32_t> going_on_;  // calls that have begun and have frames to come
};
