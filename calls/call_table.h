#pragma once

#include <cstdint>
#include <memory>

#include "calls/call.h"
#include "calls/message.h"

// The calls of a trace, told apart as the two sides of a line would. Takes the frames in the order of the trace; the
// calls can be asked for at any time.
class CallTable {
 public:
    CallTable();
    ~CallTable();
    CallTable(const CallTable&) = delete;
    CallTable& operator=(const CallTable&) = delete;

    struct Added {
        std::uint32_t no = 0;   // of the call that the frame belongs to; 0: none
        bool repeated = false;  // the frame repeats an earlier one, and does not count
    };

    // Every frame of the trace, those without a message too: a SABME begins the numbers of frames anew.
    Added add(const Message& message);

    [[nodiscard]] std::uint32_t size() const;         // how many calls there are
    [[nodiscard]] Call call(std::uint32_t no) const;  // no: 1..size()

 private:
    class State;
    std::unique_ptr<State> state_;
};
