#include "calls/call_option.h"

#include <charconv>
#include <system_error>

std::string add_call_number(std::string_view text, std::vector<std::uint32_t>& calls) {
    std::uint32_t no = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), no);
    if (error != std::errc() || end != text.data() + text.size() || no == 0) {
        return "no number of a call: " + std::string(text);
    }
    calls.push_back(no);
    return {};
}
