// The cases of tests/cases: octets in, report lines out. CONTRIBUTING.md describes their format.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "tests/program.h"

namespace {

constexpr const char* SENDING_COMPLETE = "  1:           SENDING COMPLETE(0xa1)\n";

// "2 7 129-134" as single numbers.
std::set<int> numbers(const std::string& list) {
    std::set<int> all;
    std::istringstream stream(list);
    for (int first = 0; stream >> first;) {
        int last = first;
        if (stream.peek() == '-') {
            stream.ignore() >> last;
        }
        for (; first <= last; ++first) {
            all.insert(first);
        }
    }
    return all;
}

// An expected line.
struct Line {
    std::string
        filter;         // "!9 16R": where it is expected: variants, '!' for all but these; 'R' or 'T' for one direction
    std::string marks;  // '>' an indent more when transmitted, '=' no indent, 'T' an indent in any case
    std::string text;

    [[nodiscard]] bool in(int variant, char direction) const {
        std::string variants = filter;
        const bool all_but = std::erase(variants, '!') != 0;
        const bool one_direction =
            std::erase_if(variants, [](char letter) { return letter == 'R' || letter == 'T'; }) != 0;
        return (variants.empty() || numbers(variants).contains(variant) != all_but) &&
               (!one_direction || filter.find(direction) != std::string::npos);
    }

    [[nodiscard]] std::string report(char direction) const {
        std::string all;
        if (marks == "T" || (direction == 'T' && marks != "=")) {
            all += INDENT;
            std::ranges::for_each(marks, [&all](char mark) { all += mark == '>' ? INDENT : ""; });
        }
        return all + text + "\n";
    }
};

struct Case {
    std::string name;
    std::string file;
    std::set<int> variants{2};
    char kind = 0;  // 'e'lement, 'f'rame or 't'race
    std::string octets{};
    int status = 0;
    std::vector<Line> lines{};
};

// "[7]" at the start of a text, taken from it.
std::string take_filter(std::string& text) {
    const auto size = text.starts_with('[') ? text.find(']') + 1 : 0;
    std::string filter = size == 0 ? "" : text.substr(1, size - 2);
    text.erase(0, size);
    return filter;
}

// "[filter]marks|line|[filter]line": filter and marks in front go for all lines, '>' for the first one only.
void parse_lines(std::vector<Line>& lines, std::string source) {
    if (source.find('|') == std::string::npos) {
        throw std::runtime_error(source);
    }
    const std::string filter = take_filter(source);
    std::string marks = source.substr(0, source.find('|'));
    for (auto at = source.find('|'); at != std::string::npos;) {
        const auto next = source.find('|', at + 1);
        std::string text = source.substr(at + 1, next - at - 1);
        const std::string own_filter = take_filter(text);
        for (auto escape = text.find("\\x"); escape != std::string::npos; escape = text.find("\\x", escape)) {
            text.replace(escape, 4, 1, static_cast<char>(std::stoi(text.substr(escape + 2, 2), nullptr, 16)));
        }
        if (text.starts_with('@')) {  // "@CAUSE 08 02": the title and length lines of an element
            const std::string name = text.substr(1, text.size() - 7);
            const std::string title = "  1:           " + name + "(0x" + text.substr(text.size() - 5, 2) + ")";
            lines.push_back({own_filter.empty() ? filter : own_filter, marks, title});
            text = "  2:           IE Length(0x" + text.substr(text.size() - 2) + ")";
            std::erase(marks, '>');
        }
        lines.push_back({own_filter.empty() ? filter : own_filter, marks, text});
        std::erase(marks, '>');
        at = next;
    }
}

void parse_key(Case& current, const std::string& source) {
    const std::string key = source.substr(0, source.find(':'));
    const std::string rest = source.substr(key.size() + 1);
    if (key == "variants") {
        current.variants = numbers(rest);
    } else if (key == "status") {
        current.status = std::stoi(rest);
    } else if (key == "element" || key == "frame" || key == "trace") {
        current.kind = key[0];
        current.octets += rest + "\n";
    } else {
        throw std::runtime_error(current.file + ": " + source);
    }
}

std::vector<Case> read_cases() {
    std::vector<Case> cases;
    for (const auto& entry : std::filesystem::directory_iterator(CASES)) {
        std::ifstream stream(entry.path());
        const std::string file = entry.path().stem();
        for (std::string source; std::getline(stream, source);) {
            if (source.starts_with("== ")) {
                cases.push_back({.name = source.substr(3), .file = file});
            } else if (cases.empty() || cases.back().file != file || source[0] == '#') {
                continue;  // a table for another test, or a comment
            } else if (std::string_view("[|>=T").find(source[0]) != std::string::npos) {
                parse_lines(cases.back().lines, source);
            } else {
                parse_key(cases.back(), source);
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
void add_frame(std::ostream& trace, std::string& report, const Case& decoding, int variant, char direction) {
    const bool basic_rate = variant >= 128;
    std::string octets = decoding.octets;
    std::vector<Line> head;
    parse_lines(head, basic_rate ? "[R]|RECEIVE (5)" : "[R]|RECEIVE");
    parse_lines(head, basic_rate ? "[T]>|TRANSMIT (5)" : "[T]>|TRANSMIT");
    if (decoding.kind == 'e') {
        octets = "02 01 00 00 08 02 00 01 05" + octets;
        parse_lines(head, "|[R]Command=1   SAPI=0x00|[T]Response=1   SAPI=0x00|TEI=0x00|0x00 0x00  Information");
        parse_lines(head, "|Dest=0   CR=0x0001|SETUP(0x05)");
    }
    report += expected_lines(head, variant, direction) + expected_lines(decoding.lines, variant, direction);
    if (decoding.kind == 'e' && octets.find(';') == std::string::npos) {
        octets += " a1";
        report += report.ends_with(SENDING_COMPLETE) ? "" : (direction == 'T' ? INDENT : "") + SENDING_COMPLETE;
    }
    octets = octets.substr(0, octets.find(';'));
    trace << (direction == 'T' ? "54" : "52") << (basic_rate ? " 05 " : " ") << bytes_of(octets).size() << " " << octets
          << "\n";
    report += "\n";
}

class Decoding : public testing::TestWithParam<Case> {};

TEST_P(Decoding, Report) {
    const Case& decoding = GetParam();
    for (const int variant : decoding.variants) {
        SCOPED_TRACE("variant " + std::to_string(variant));
        std::ostringstream trace;
        std::string expected;
        trace << std::hex << variant << " 02\n";
        if (decoding.kind == 't') {
            trace << decoding.octets;
            expected = expected_lines(decoding.lines, variant, 'R');
            if (expected.ends_with("ERROR ABORT \n")) {
                expected.pop_back();  // the one line of a report that is not ended
            }
        } else {
            add_frame(trace, expected, decoding, variant, 'R');
            add_frame(trace, expected, decoding, variant, 'T');
        }
        const auto behind_protocol = [](const std::string& report) { return report.substr(report.find('\n') + 1); };
        EXPECT_EQ(behind_protocol(decode_hex(trace.str(), decoding.status)), expected);
        if (decoding.kind != 't' && variant == *decoding.variants.begin()) {
            EXPECT_EQ(behind_protocol(decode_binary(bytes_of(trace.str()))), expected) << "as a binary trace";
        }
    }
}

// A test's name: the case's file and name, in the characters that GoogleTest allows.
std::string test_name(const testing::TestParamInfo<Case>& decoding) {
    std::string name = decoding.param.file + "_" + decoding.param.name;
    std::ranges::replace_if(
        name, [](unsigned char letter) { return std::isalnum(letter) == 0; }, '_');
    return name;
}

void PrintTo(const Case& decoding, std::ostream* stream) { *stream << decoding.file; }

INSTANTIATE_TEST_SUITE_P(Cases, Decoding, testing::ValuesIn(read_cases()), test_name);

}  // namespace
