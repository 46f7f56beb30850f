// The cases of tests/cases: octets in, report lines out. CONTRIBUTING.md describes their format.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "tests/program.h"

namespace {

constexpr const char* SENDING_COMPLETE = "  1:           SENDING COMPLETE(0xa1)\n";

// Expected lines and where they are expected.
struct Lines {
    std::string filter;      // "[!9 16R]": variants, '!' for all but these, 'R' or 'T' for one direction only
    std::set<int> variants;  // none: all
    std::string marks;       // '>' an indent more in front of the first line, '=' no indent, 'T' an indent in any case
    std::string text;        // the lines, each with its line end

    [[nodiscard]] bool in(int variant, char direction) const {
        const bool has_direction = filter.find_first_of("RT") != std::string::npos;
        const bool all_but = filter.find('!') != std::string::npos;
        return (variants.empty() || variants.contains(variant) != all_but) &&
               (!has_direction || filter.find(direction) != std::string::npos);
    }
};

struct Case {
    std::string name;
    std::string file;
    std::set<int> variants{2};
    char kind = 0;  // 'e'lement, 'f'rame or 't'race
    std::string octets{};
    int status = 0;
    std::vector<Lines> expected{};
};

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

// Every line of the text with the indent in front of it.
std::string indented(const std::string& text, const std::string& indent) {
    std::string all;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        all += indent + line + "\n";
    }
    return all;
}

Lines parse_lines(const std::string& source) {
    Lines lines;
    const auto bar = source.find('|');
    const auto filter_end = source[0] == '[' ? source.find(']') + 1 : 0;
    lines.filter = source.substr(0, filter_end);
    lines.marks = source.substr(filter_end, bar - filter_end);
    std::string variants = lines.filter;
    std::erase_if(variants, [](char letter) { return std::string_view("[]!RT").find(letter) != std::string::npos; });
    lines.variants = numbers(variants);
    lines.text = source.substr(bar + 1) + "\n";
    std::ranges::replace(lines.text, '|', '\n');
    for (auto at = lines.text.find("\\x"); at != std::string::npos; at = lines.text.find("\\x", at)) {
        lines.text.replace(at, 4, 1, static_cast<char>(std::stoi(lines.text.substr(at + 2, 2), nullptr, 16)));
    }
    return lines;
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
                cases.back().expected.push_back(parse_lines(source));
            } else {
                parse_key(cases.back(), source);
            }
        }
    }
    return cases;
}

std::string expected_report(const Case& decoding, int variant, char direction) {
    std::string all;
    for (const Lines& lines : decoding.expected) {
        if (lines.in(variant, direction)) {
            const auto marked = [&](char mark) { return lines.marks.find(mark) != std::string::npos; };
            const std::string indent = marked('T') || (direction == 'T' && !marked('=')) ? INDENT : "";
            for (auto left_over = std::ranges::count(lines.marks, '>'); left_over > 0; --left_over) {
                all += indent;
            }
            all += indented(lines.text, indent);
        }
    }
    return all;
}

// A frame's record in hex and its report.
struct Frame {
    std::string record;
    std::string report;
};

Frame make_frame(const Case& decoding, int variant, char direction) {
    const bool transmitted = direction == 'T';
    const std::string indent = transmitted ? INDENT : "";
    std::string octets = decoding.octets;
    std::string report = transmitted ? "TRANSMIT" : "RECEIVE";
    report += variant >= 128 ? " (5)\n" : "\n";
    if (decoding.kind == 'e') {
        octets = "02 01 00 00 08 02 00 01 05" + octets;
        report += transmitted ? "Response=1   SAPI=0x00\n" : "Command=1   SAPI=0x00\n";
        report += "TEI=0x00\n0x00 0x00  Information\nDest=0   CR=0x0001\nSETUP(0x05)\n";
    }
    report = indent + indented(report, indent) + expected_report(decoding, variant, direction);
    if (decoding.kind == 'e' && octets.find(';') == std::string::npos) {
        octets += " a1";
        report += report.ends_with(SENDING_COMPLETE) ? "" : indent + SENDING_COMPLETE;
    }
    octets = octets.substr(0, octets.find(';'));
    std::ostringstream record;
    record << (transmitted ? "54" : "52") << (variant >= 128 ? " 05 " : " ") << std::hex << bytes_of(octets).size()
           << " ";
    return {record.str() + octets + "\n", report + "\n"};
}

class Decoding : public testing::TestWithParam<Case> {};

TEST_P(Decoding, Report) {
    const Case& decoding = GetParam();
    for (const int variant : decoding.variants) {
        SCOPED_TRACE("variant " + std::to_string(variant));
        std::ostringstream body;
        body << std::hex << variant << " 02\n" << (decoding.kind == 't' ? decoding.octets : "");
        std::string expected = decoding.kind == 't' ? expected_report(decoding, variant, 'R') : "";
        if (decoding.status == 1 && expected.ends_with("ERROR ABORT \n")) {
            expected.pop_back();  // the one line of a report that is not ended
        }
        for (const char direction : decoding.kind == 't' ? std::string() : "RT") {
            const Frame frame = make_frame(decoding, variant, direction);
            body << frame.record;
            expected += frame.report;
        }
        const auto behind_protocol = [](const std::string& report) { return report.substr(report.find('\n') + 1); };
        EXPECT_EQ(behind_protocol(decode_hex(body.str(), decoding.status)), expected);
        if (decoding.kind != 't' && variant == *decoding.variants.begin()) {
            EXPECT_EQ(behind_protocol(decode_binary(bytes_of(body.str()))), expected) << "as a binary trace";
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
