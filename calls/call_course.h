#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calls/call.h"
#include "calls/call_numbers.h"
#include "calls/message.h"

constexpr std::uint8_t TEI_ALL = 127;  // SETUPs to all terminals go there

// Whether a message clears a call.
bool is_clearing(Step step);

// The course of one call, from its messages. A call to all terminals goes on with each of them by itself (a leg, known
// by its TEI); other calls have one leg.
class CallCourse {
 public:
    CallCourse(const Message& first, bool to_all);

    // Takes a message of the call, the first one too.
    void take(const Message& message);

    // Ends the call, unless it is cleared: a RESTART of its channel.
    void restart(std::optional<std::int64_t> elapsed);

    // Another call has taken its call reference: what comes ends this one no more.
    void supersede() { superseded_ = true; }

    // Whether a SETUP is that of this call once more.
    [[nodiscard]] bool repeats_setup(const Message& setup) const;

    [[nodiscard]] bool to_all() const { return to_all_; }
    [[nodiscard]] bool is_over() const;                            // its call reference is free again
    [[nodiscard]] bool is_released_by_all() const;                 // by all terminals that have responded
    [[nodiscard]] bool is_over_for(const Message& message) const;  // at least for the terminal of that message

    [[nodiscard]] const std::string& channel() const { return channel_; }
    [[nodiscard]] const std::string& interface() const { return interface_; }

    // The call as it stands now, but for its number.
    [[nodiscard]] Call call() const;

 private:
    struct Clearing {
        Cleared by = Cleared::OPEN;
        std::optional<std::int64_t> time;
        std::optional<Cause> cause;  // the first that its messages have said
    };

    struct Leg {
        std::uint8_t tei = 0;
        bool has_responded = false;  // the terminal has said something
        bool is_over = false;        // RELEASE COMPLETE, or what ends a call as well
        bool connected = false;
        std::optional<std::int64_t> connect_time;
        Clearing clearing;
    };

    static constexpr std::size_t NONE = SIZE_MAX;  // for the index of a leg

    [[nodiscard]] bool by_caller(const Message& message) const { return message.transmitted == by_transmitted_; }
    [[nodiscard]] Cleared caller() const { return by_transmitted_ ? Cleared::TRANSMITTED : Cleared::RECEIVED; }
    [[nodiscard]] bool cleared_by_caller() const;
    [[nodiscard]] const Clearing& clearing() const;
    [[nodiscard]] std::optional<Cause> cause() const;
    [[nodiscard]] Result result() const;
    std::size_t leg_of(const Message& message);
    void note_setup(const Message& setup);
    void note_response(const Message& message, Leg& leg);
    void note_reason(const Message& message);
    void take_step(const Message& message, std::size_t leg);
    void alert(const Message& message);
    void connect(const Message& message, std::size_t leg);
    void acknowledge(const Message& message, std::size_t leg);
    void clear(const Message& message, std::size_t leg, Cleared by);
    void clear_by_side(const Message& message, std::size_t leg);
    void end(const Message& message, std::size_t leg, Cleared by);

    std::optional<std::int64_t> start_;
    std::uint64_t at_;
    std::optional<std::uint8_t> line_;
    bool by_transmitted_;
    bool to_all_;
    bool acknowledged_ = false;  // the connected leg is the one that the network has chosen
    bool responded_ = false;     // the other side has said more to the SETUP than refusals of terminals
    bool only_setups_ = true;    // nothing but the SETUP has been said
    std::uint32_t messages_ = 0;
    std::string reference_;
    CallNumbers numbers_;
    std::string channel_;
    std::string interface_;
    std::optional<std::uint64_t> setup_content_;
    std::optional<std::int64_t> setup_time_;
    bool alerted_ = false;
    std::optional<std::int64_t> alert_time_;
    std::optional<Cause> reason_;  // the first that is not normal clearing, of a call without CONNECT
    std::vector<Leg> legs_;
    std::size_t connected_ = NONE;  // the leg that has the call
    std::size_t cleared_ = NONE;    // the leg that cleared a call without CONNECT
    Clearing restart_;              // that ended the call
    bool restarted_ = false;
    bool superseded_ = false;
};
