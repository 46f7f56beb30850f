#include "calls/call_course.h"

#include <algorithm>

namespace {

constexpr std::int64_t SETUP_REPEATED_MS = 10'000;

using Time = std::optional<std::int64_t>;

// None where a trace goes back in time.
Time difference(Time from, Time to) { return from && to && *to >= *from ? Time(*to - *from) : std::nullopt; }

bool is_status(Step step) { return step == Step::STATUS || step == Step::STATUS_ENQUIRY; }

}  // namespace

bool is_clearing(Step step) {
    switch (step) {
        case Step::DISCONNECT:
        case Step::RELEASE:
        case Step::RELEASE_COMPLETE:
        case Step::RESUME_REJECT: return true;
        default: return false;
    }
}

CallCourse::CallCourse(const Message& first, bool to_all)
    : start_(first.elapsed),
      at_(first.at),
      line_(first.line),
      by_transmitted_(first.tei ? first.by_sender == first.transmitted : first.transmitted),
      to_all_(to_all),
      reference_(first.reference) {}

void CallCourse::take(const Message& message) {
    ++messages_;
    const bool repeated_setup = message.step == Step::SETUP && setup_content_;
    const bool in_use = connected_ != NONE;  // what is dialled then is for services
    if (by_caller(message) && !repeated_setup && !in_use) {
        numbers_.add(message);
    }
    if (message.step == Step::SETUP || message.step == Step::RESUME) {
        note_setup(message);
    } else {
        only_setups_ = false;
    }
    const std::size_t index = leg_of(message);
    note_response(message, legs_[index]);
    note_reason(message);
    if (!message.channel.empty()) {
        channel_ = message.channel;
        interface_ = message.interface;
    }
    take_step(message, index);
}

bool CallCourse::cleared_by_caller() const { return cleared_ != NONE && legs_[cleared_].clearing.by == caller(); }

// What is sent to all terminals has a leg as well, whose terminal never responds.
std::size_t CallCourse::leg_of(const Message& message) {
    const std::uint8_t terminal = message.tei.value_or(0);
    const auto found = std::ranges::find(legs_, terminal, &Leg::tei);
    if (found == legs_.end()) {
        legs_.emplace_back().tei = terminal;
        return legs_.size() - 1;
    }
    return static_cast<std::size_t>(found - legs_.begin());
}

// A terminal that speaks for the first time opens a call again that others have cleared; but not by a refusal that
// comes when the caller has gone.
void CallCourse::note_response(const Message& message, Leg& leg) {
    if (by_caller(message)) {
        return;
    }
    const bool refusal = to_all_ && is_clearing(message.step);
    responded_ = responded_ || !refusal;
    const bool crosses = leg.clearing.by != Cleared::OPEN || (refusal && cleared_by_caller());
    if (to_all_ && !leg.has_responded && !crosses) {
        cleared_ = NONE;
    }
    leg.has_responded = true;
}

// A refusal by one of several terminals is no reason of the call, nor is a STATUS, nor what is said after its end.
void CallCourse::note_reason(const Message& message) {
    const bool counts = !is_status(message.step) && !(to_all_ && is_clearing(message.step));
    if (!reason_ && counts && cleared_ == NONE && message.cause && message.cause->reason != Reason::NORMAL) {
        reason_ = message.cause;
    }
}

// Terminals respond to each SETUP anew.
void CallCourse::note_setup(const Message& setup) {
    legs_.clear();
    cleared_ = NONE;
    setup_content_ = setup.content;
    setup_time_ = setup.elapsed;
}

bool CallCourse::repeats_setup(const Message& setup) const {
    const bool same = setup_content_ == setup.content && by_caller(setup) && to_all_ == (setup.tei == TEI_ALL);
    if (!same || responded_ || connected_ != NONE || restarted_ || cleared_by_caller()) {
        return false;
    }
    const Time passed = difference(setup_time_, setup.elapsed);
    return passed ? *passed <= SETUP_REPEATED_MS : only_setups_;
}

void CallCourse::take_step(const Message& message, std::size_t leg) {
    switch (message.step) {
        case Step::ALERTING: return alert(message);
        case Step::CONNECT: return connect(message, leg);
        case Step::CONNECT_ACKNOWLEDGE: return acknowledge(message, leg);
        case Step::RESUME_ACKNOWLEDGE: return connect(message, leg);
        case Step::SUSPEND_ACKNOWLEDGE: return end(message, leg, Cleared::SUSPEND);
        case Step::DISCONNECT:
        case Step::RELEASE:
        case Step::RELEASE_COMPLETE:
        case Step::RESUME_REJECT: return clear_by_side(message, leg);
        case Step::STATUS:
            if (message.call_state == 0) {
                end(message, leg, Cleared::STATUS);
            }
            return;
        default: return;
    }
}

void CallCourse::alert(const Message& message) {
    if (!alerted_ && connected_ == NONE && cleared_ == NONE) {
        alerted_ = true;
        alert_time_ = message.elapsed;
    }
}

// A CONNECT that crosses the clearing of its terminal is too late. The first one has the call, as long as the network
// acknowledges no other.
void CallCourse::connect(const Message& message, std::size_t leg) {
    Leg& terminal = legs_[leg];
    if (terminal.connected || terminal.clearing.by != Cleared::OPEN) {
        return;
    }
    terminal.connected = true;
    terminal.connect_time = message.elapsed;
    if (connected_ == NONE) {
        connected_ = leg;
    }
}

void CallCourse::acknowledge(const Message& message, std::size_t leg) {
    if (legs_[leg].connected && !acknowledged_ && by_caller(message)) {
        acknowledged_ = true;
        connected_ = leg;
    }
}

// Clears the leg, or adds the cause of its clearing. A call without CONNECT is cleared when the caller clears, or when
// the last terminal does that has responded; what the caller says to a terminal that has cleared by itself confirms
// that.
void CallCourse::clear(const Message& message, std::size_t leg, Cleared by) {
    if (restarted_) {
        return;
    }
    Clearing& clearing = legs_[leg].clearing;
    const bool first = clearing.by == Cleared::OPEN;
    if (first) {
        clearing.by = by;
        clearing.time = message.elapsed;
    }
    if (!clearing.cause) {
        clearing.cause = message.cause;
    }
    const auto is_gone = [](const Leg& other) { return !other.has_responded || other.clearing.by != Cleared::OPEN; };
    if (first && cleared_ == NONE && (by_caller(message) || std::ranges::all_of(legs_, is_gone))) {
        cleared_ = leg;
    }
}

// A clearing message. DASS2 and DPNSS have no RELEASE COMPLETE: there a call is over when both sides have cleared.
void CallCourse::clear_by_side(const Message& message, std::size_t leg) {
    const Cleared side = message.transmitted ? Cleared::TRANSMITTED : Cleared::RECEIVED;
    clear(message, leg, side);
    const bool confirmed = !message.tei && legs_[leg].clearing.by != side;
    if (message.step == Step::RELEASE_COMPLETE || message.step == Step::RESUME_REJECT || confirmed) {
        legs_[leg].is_over = true;
    }
}

// What ends a call without clearing messages.
void CallCourse::end(const Message& message, std::size_t leg, Cleared by) {
    if (legs_[leg].clearing.by == Cleared::OPEN) {
        clear(message, leg, by);
    }
    legs_[leg].is_over = true;
}

void CallCourse::restart(Time elapsed) {
    if (superseded_) {
        return;
    }
    if (clearing().by == Cleared::OPEN) {
        restart_ = {Cleared::RESTART, elapsed, std::nullopt};
    }
    restarted_ = true;
}

// A terminal whose CONNECT was second may be the one that is acknowledged.
bool CallCourse::is_over() const {
    if (restarted_) {
        return true;
    }
    const auto may_go_on = [&](const Leg& leg) { return leg.connected && !leg.is_over && !acknowledged_; };
    const std::size_t leg = connected_ == NONE && !to_all_ ? 0 : connected_;
    return leg != NONE && legs_[leg].is_over && std::ranges::none_of(legs_, may_go_on);
}

bool CallCourse::is_released_by_all() const {
    return std::ranges::all_of(legs_, [](const Leg& leg) { return !leg.has_responded || leg.is_over; });
}

bool CallCourse::is_over_for(const Message& message) const {
    const auto leg = std::ranges::find(legs_, message.tei.value_or(0), &Leg::tei);
    return is_over() || (leg != legs_.end() && leg->is_over);
}

const CallCourse::Clearing& CallCourse::clearing() const {
    const std::size_t leg = connected_ == NONE ? cleared_ : connected_;
    return leg != NONE && legs_[leg].clearing.by != Cleared::OPEN ? legs_[leg].clearing : restart_;
}

std::optional<Cause> CallCourse::cause() const {
    const bool its_own = connected_ != NONE || clearing().by == Cleared::STATUS || !reason_;
    return its_own ? clearing().cause : reason_;
}

Result CallCourse::result() const {
    if (connected_ != NONE) {
        return Result::ANSWERED;
    }
    const Cleared by = clearing().by;
    if (by == Cleared::OPEN) {
        return Result::OPEN;
    }
    const std::optional<Cause> said = cause();
    switch (said ? said->reason : Reason::NORMAL) {
        case Reason::BUSY: return Result::BUSY;
        case Reason::NO_ANSWER: return Result::NO_ANSWER;
        case Reason::REJECTED: return Result::REJECTED;
        case Reason::NORMAL: return by == caller() ? Result::ABANDONED : Result::FAILED;
        case Reason::FAILURE: break;
    }
    return Result::FAILED;
}

Call CallCourse::call() const {
    const Clearing& cleared = clearing();
    const Time connect_time = connected_ == NONE ? std::nullopt : legs_[connected_].connect_time;
    Call call;
    call.start = start_;
    call.at = at_;
    call.by_transmitted = by_transmitted_;
    call.line = line_;
    call.reference = reference_;
    call.from = numbers_.from();
    call.to = numbers_.to();
    call.channel = channel_;
    if (alerted_) {
        call.alert = difference(start_, alert_time_);
        call.ring = difference(alert_time_, connected_ == NONE ? cleared.time : connect_time);
    }
    call.talk = difference(connect_time, cleared.time);
    call.result = result();
    call.cleared = cleared.by;
    call.cause = cause();
    call.messages = messages_;
    return call;
}
