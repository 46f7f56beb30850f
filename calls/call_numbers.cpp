#include "calls/call_numbers.h"

#include <algorithm>

#include "calls/layer3.h"

void CallNumbers::add(const Message& message) {
    if (!message.tei) {
        has_selection_ = true;
        to_ += message.selection;
        return;
    }
    if (from_.empty()) {
        from_ = message.from;
    }
    if (message.step == Step::SETUP) {
        to_ += message.to;
    } else if (message.step == Step::INFORMATION) {
        further_digits(*message.tei) += message.to;
    }
}

std::string& CallNumbers::further_digits(std::uint8_t terminal) {
    const auto found = std::ranges::find(further_, terminal, &Digits::tei);
    return found == further_.end() ? further_.emplace_back(Digits{terminal, {}}).text : found->text;
}

std::string CallNumbers::from() const { return has_selection_ ? std::string(calling_number(to_)) : from_; }

std::string CallNumbers::to() const {
    if (has_selection_) {
        return called_number(to_);
    }
    const auto most = std::ranges::max_element(further_, {}, [](const Digits& digits) { return digits.text.size(); });
    return most == further_.end() ? to_ : to_ + most->text;
}
