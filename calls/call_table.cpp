#include "calls/call_table.h"

#include <algorithm>
#include <deque>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "calls/call_course.h"
#include "calls/channel_calls.h"
#include "calls/repeated_frames.h"

namespace {

// Whether the message opens a call, whatever was before.
bool opens(const Message& message) { return message.step == Step::SETUP || message.step == Step::RESUME; }

// Whether it may come after the end of its call.
bool may_follow_end(Step step) { return is_clearing(step) || step == Step::STATUS || step == Step::STATUS_ENQUIRY; }

// Whether the side that gave the call reference is the network: then several terminals may respond.
bool called_by_network(const Message& message) { return message.tei && message.by_sender == message.from_network; }

// What calls to all terminals are known by: line, reference, and the side that gave it. DASS2 and DPNSS: the timeslot.
std::string call_key(const Message& message) {
    std::string key = message.reference;
    if (message.tei) {
        key += message.by_sender == message.transmitted ? 'T' : 'R';
        key += static_cast<char>(message.line.value_or(0));
    }
    return key;
}

// And what those with one terminal are known by.
std::string call_key_of_terminal(const Message& message) {
    return call_key(message) + static_cast<char>(message.tei.value_or(0));
}

}  // namespace

class CallTable::State {
 public:
    Added add(const Message& message) {
        if (!message.is_message) {
            if (message.establishes) {
                repeated_.link_established(message);
            }
            return {};
        }
        if (const auto no = repeated_.call_of_repeated(message)) {
            return {*no, true};
        }
        if (message.step == Step::RESTART) {
            restart(message);
        }
        const std::uint32_t no = message.of_call && !of_connection(message) ? count(message) : 0;
        repeated_.keep(message, no);
        return {no, false};
    }

    [[nodiscard]] std::uint32_t size() const { return static_cast<std::uint32_t>(courses_.size()); }
    [[nodiscard]] Call call(std::uint32_t no) const { return courses_[no - 1].call(); }

 private:
    // Numbers of the latest calls of a key: to all terminals, and each to one of them.
    using Latest = std::unordered_map<std::string, std::uint32_t>;

    CallCourse& course(std::uint32_t no) { return courses_[no - 1]; }

    static std::uint32_t latest(const Latest& calls, const std::string& key) {
        const auto found = calls.find(key);
        return found == calls.end() ? 0 : found->second;
    }

    std::uint32_t count(const Message& message) {
        const std::uint32_t no = call_of(message);
        CallCourse& call = course(no);
        if (!message.channel.empty() && (message.channel != call.channel() || message.interface != call.interface())) {
            on_channels_.named_channel(message, no);
        }
        call.take(message);
        return no;
    }

    // Whether the message belongs to a signalling connection of Q.932, which has a call reference as calls have.
    bool of_connection(const Message& message) {
        if (connections_.empty() && message.step != Step::REGISTER) {
            return false;
        }
        const std::string key = call_key_of_terminal(message);
        const std::uint32_t no = latest_call(message);
        if (message.step == Step::REGISTER && (no == 0 || course(no).is_over_for(message))) {
            connections_.insert(key);
            return true;
        }
        if (opens(message) || message.step == Step::RELEASE_COMPLETE) {
            return connections_.erase(key) != 0 && !opens(message);
        }
        return connections_.contains(key);
    }

    // The last call of the message's key; 0: none.
    [[nodiscard]] std::uint32_t latest_call(const Message& message) const {
        return std::max(latest(to_all_, call_key(message)), latest(to_one_, call_key_of_terminal(message)));
    }

    std::uint32_t call_of(const Message& message) {
        const std::uint32_t no = latest_call(message);
        if (no == 0 || begins_another(message, course(no))) {
            return goes_to_all(message, no) ? open(message, to_all_[call_key(message)], true)
                                            : open(message, to_one_[call_key_of_terminal(message)], false);
        }
        return no;
    }

    static bool begins_another(const Message& message, const CallCourse& latest) {
        return opens(message) ? !latest.repeats_setup(message)
                              : latest.is_over_for(message) && !may_follow_end(message.step);
    }

    // Whether the call that the message opens is one to all terminals; no: the latest call of its key.
    bool goes_to_all(const Message& message, std::uint32_t no) {
        if (opens(message)) {
            return message.tei == TEI_ALL;
        }
        const bool of_one_terminal = no != 0 && !course(no).is_over() && !course(no).is_released_by_all();
        return called_by_network(message) && !of_one_terminal;
    }

    std::uint32_t open(const Message& message, std::uint32_t& latest, bool to_all) {
        if (latest != 0) {
            course(latest).supersede();
        }
        courses_.emplace_back(message, to_all);
        latest = size();
        on_channels_.opened(message, latest);
        return latest;
    }

    void restart(const Message& message) {
        for (const std::uint32_t no : on_channels_.take(message)) {
            CallCourse& call = course(no);
            if (concerns(message, call.interface(), call.channel())) {
                call.restart(message.elapsed);
            }
        }
    }

    std::deque<CallCourse> courses_;
    Latest to_all_;
    Latest to_one_;
    std::unordered_set<std::string> connections_;  // open ones, by key of the terminal
    ChannelCalls on_channels_;
    RepeatedFrames repeated_;
};

CallTable::CallTable() : state_(std::make_unique<State>()) {}
CallTable::~CallTable() = default;

CallTable::Added CallTable::add(const Message& message) { return state_->add(message); }

std::uint32_t CallTable::size() const { return state_->size(); }

Call CallTable::call(std::uint32_t no) const {
    Call call = state_->call(no);
    call.no = no;
    return call;
}
