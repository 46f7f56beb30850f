// The cases of tests/cases: octets in, report lines out. CONTRIBUTING.md describes their format.
#include <algorithm>
#include <map>
#include <regex>
#include <vector>

#include "tests/program.h"

namespace {

const std::string SENDING_COMPLETE = "  1:           SENDING COMPLETE(0xa1)\n";

// "2 7 BRI" as protocol codes.
std::vector<int> codes(const std::string& list) {
    std::istringstream stream(std::regex_replace(list, std::regex("BRI"), "129 130 131 132 133 134"));
    return {std::istream_iterator<int>(stream), {}};
}

// An expected line.
struct Line {
    std::string filter;  // where it is expected: "9 16", "!9 16" (not under these), "R", "T", or everywhere
    std::string text;    // each '>' in front of it an indent more when transmitted

    [[nodiscard]] bool in(int variant, char direction) const {
        const bool all_but = filter.starts_with('!');
        const bool named = std::ranges::count(codes(filter.substr(all_but ? 1 : 0)), variant) != 0;
        return filter.empty() || filter[0] == direction || named != all_but;
    }

    [[nodiscard]] std::string report(char direction) const {
        const auto more = std::min(text.find_first_not_of('>'), text.size());
        std::string line;
        for (auto left = direction == 'T' ? more + 1 : 0; left > 0; --left) {
            line += INDENT;
        }
        return line + text.substr(more) + "\n";
    }
};

struct Case {
    std::string name;
    std::map<std::string, std::string> keys;
    std::vector<Line> lines;
};

// "[7]" at the start of a text, taken from it.
std::string take_filter(std::string& text) {
    const auto size = text.starts_with('[') ? text.find(']') + 1 : 0;
    std::string filter = size == 0 ? "" : text.substr(1, size - 2);
    text.erase(0, size);
    return filter;
}

// The lines that follow the title and length of the last element but one, so many of them.
std::vector<Line> repeated(const std::vector<Line>& lines, std::ptrdiff_t count) {
    const auto is_length = [](const Line& line) { return line.text.starts_with("  2:           IE Length(0x"); };
    const auto last = std::find_if(lines.rbegin(), lines.rend(), is_length);
    const auto first = std::find_if(std::next(last), lines.rend(), is_length).base();
    return {first, first + count};
}

// "[filter]|line|[filter]line", the filter in front for all lines without their own; "T|line": lines with an indent.
void parse_lines(std::vector<Line>& lines, std::string source) {
    static const std::regex element(R"(\|(\[[^\]]*\])?(>*)@([^|]*) (..) (..))");
    source = std::regex_replace(source, element, "|$1$2  1:           $3(0x$4)|$1  2:           IE Length(0x$5)");
    source = std::regex_replace(source, std::regex("~"), "------- Extension Bit");
    source = std::regex_replace(source, std::regex(R"(([|>\]])([-01]{8}))"), "$1      $2");
    const std::string filter = take_filter(source);
    const std::string column = source.starts_with('T') ? INDENT : "";
    std::istringstream texts(source.substr(source.find('|') + 1) + "|");
    for (std::string text; std::getline(texts, text, '|');) {
        const std::string own_filter = take_filter(text);
        for (auto escape = text.find("\\x"); escape != std::string::npos; escape = text.find("\\x", escape)) {
            text.replace(escape, 4, bytes_of(text.substr(escape + 2, 2)));
        }
        if (text.starts_with('"')) {
            std::ranges::copy(repeated(lines, std::stoi(text.substr(1))), std::back_inserter(lines));
            continue;
        }
        lines.push_back({own_filter.empty() ? filter : own_filter, column + text});
    }
}

std::vector<Case> read_cases() {
    std::vector<Case> cases;
    for (const auto& entry : std::filesystem::directory_iterator(CASES)) {
        std::ifstream stream(entry.path());
        for (std::string source; std::getline(stream, source);) {
            const auto colon = source.find(": ");
            if (source.starts_with("== ")) {
                cases.push_back({entry.path().stem().string() + "_" + source.substr(3), {}, {}});
            } else if (source.find_first_of("[|T") == 0) {
                parse_lines(cases.back().lines, source);
            } else if (source[0] != '#' && !entry.path().string().ends_with("_messages.txt")) {
                cases.back().keys[source.substr(0, colon)] += source.substr(colon + 2) + " ";
            }
        }
    }
    return cases;
}

std::string expected_lines(const std::vector<Line>& lines, int variant, char direction) {
    std::string all;
    for (const Line& line : lines) {
        all += line.in(variant, direction) ? line.report(direction) : "";
    }
    return all;
}

// Adds a frame's record to a trace in hex, and its lines to the report.
void add_frame(std::string& trace, std::string& report, Case decoding, int variant, char direction) {
    const std::string line = variant >= 128 ? " 05 " : "";
    std::string octets = decoding.keys["frame"];
    std::vector<Line> head;
    parse_lines(head, line.empty() ? "[R]|RECEIVE" : "[R]|RECEIVE (5)");
    parse_lines(head, line.empty() ? "[T]|>TRANSMIT" : "[T]|>TRANSMIT (5)");
    if (octets.empty()) {
        octets = "02 01 00 00 08 02 00 01 05 " + decoding.keys["element"];
        parse_lines(head, "|[R]Command=1   SAPI=0x00|[T]Response=1   SAPI=0x00|TEI=0x00|0x00 0x00  Information");
        parse_lines(head, "|Dest=0   CR=0x0001|SETUP(0x05)");
    }
    report += expected_lines(head, variant, direction) + expected_lines(decoding.lines, variant, direction);
    const auto end = octets.find(';');
    if (decoding.keys.contains("element") && end == std::string::npos) {
        octets += "a1";
        report += report.ends_with(SENDING_COMPLETE) ? "" : (direction == 'T' ? INDENT : "") + SENDING_COMPLETE;
    }
    octets = octets.substr(0, end);
    std::ostringstream record;
    record << (direction == 'T' ? "54 " : "52 ") << line << std::hex << bytes_of(octets).size() << " " << octets
           << "\n";
    trace += record.str();
    report += "\n";
}

class Decoding : public testing::TestWithParam<Case> {};

TEST_P(Decoding, Report) {
    Case decoding = GetParam();
    const bool whole_trace = decoding.keys.contains("trace");
    const int status = decoding.keys.contains("status") ? std::stoi(decoding.keys["status"]) : 0;
    const std::vector<int> variants = codes(decoding.keys.contains("variants") ? decoding.keys["variants"] : "2");
    for (const int variant : variants) {
        SCOPED_TRACE("variant " + std::to_string(variant));
        std::ostringstream start;
        start << std::hex << variant << " 02\n";
        std::string trace = start.str() + decoding.keys["trace"];
        std::string expected;
        if (whole_trace) {
            expected = expected_lines(decoding.lines, variant, 'R');
            if (expected.ends_with("ERROR ABORT \n")) {
                expected.pop_back();  // the one line of a report that is not ended
            }
        } else {
            add_frame(trace, expected, decoding, variant, 'R');
            add_frame(trace, expected, decoding, variant, 'T');
        }
        const auto behind_protocol = [](const std::string& report) { return report.substr(report.find('\n') + 1); };
        EXPECT_EQ(behind_protocol(decode_hex(trace, status)), expected);
        if (!whole_trace && variant == variants[0]) {
            EXPECT_EQ(behind_protocol(decode(ZERO_HEADER + bytes_of(trace), "")), expected) << "as a binary trace";
        }
    }
}

void PrintTo(const Case& decoding, std::ostream* stream) { *stream << decoding.name; }

// A case's name, in the characters that GoogleTest allows.
std::string test_name(const testing::TestParamInfo<Case>& decoding) {
    return std::regex_replace(decoding.param.name, std::regex("[^A-Za-z0-9]"), "_");
}

INSTANTIATE_TEST_SUITE_P(Cases, Decoding, testing::ValuesIn(read_cases()), test_name);

}  // namespace
