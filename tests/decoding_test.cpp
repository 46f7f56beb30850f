// The cases of tests/cases: octets in, report lines out. The format is described in tests/cases/README.md.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "tests/program.h"

namespace {

constexpr const char* SENDING_COMPLETE = "  1:           SENDING COMPLETE(0xa1)";

// An expected line and where it is expected.
struct Line {
    std::string text;
    std::set<int> variants;  // of these variants, or of all but these; none: of all
    bool all_but = false;
    char direction = 0;  // of received or transmitted frames only: 'R' or 'T'
    unsigned left_over = 0;
    bool no_indent = false;

    [[nodiscard]] bool in(int variant, char frame) const {
        return (variants.empty() || variants.contains(variant) != all_but) && (direction == 0 || direction == frame);
    }
};

struct Case {
    std::string name;
    std::string file;
    int at = 0;  // its line in the file
    std::vector<int> variants{2};
    char kind = 0;  // 'e'lement, 'f'rame or 't'race
    std::string octets{};
    int status = 0;
    std::vector<Line> lines{};
};

// "2 7 129-134" as single numbers.
std::vector<int> numbers(std::string list) {
    std::vector<int> all;
    std::istringstream stream(list);
    for (std::string item; stream >> item;) {
        const auto dash = item.find('-');
        const int first = std::stoi(item);
        const int last = dash == std::string::npos ? first : std::stoi(item.substr(dash + 1));
        for (int number = first; number <= last; ++number) {
            all.push_back(number);
        }
    }
    return all;
}

// "\xB5" as that byte.
std::string unescape(std::string text) {
    for (auto at = text.find("\\x"); at != std::string::npos; at = text.find("\\x", at + 1)) {
        text.replace(at, 4, 1, static_cast<char>(std::stoi(text.substr(at + 2, 2), nullptr, 16)));
    }
    return text;
}

Line parse_line(std::string source) {
    Line line;
    if (source[0] == '[') {
        std::string filter = source.substr(1, source.find(']') - 1);
        source.erase(0, filter.size() + 2);
        line.all_but = std::erase(filter, '!') != 0;
        for (const char direction : {'R', 'T'}) {
            line.direction = std::erase(filter, direction) != 0 ? direction : line.direction;
        }
        std::ranges::copy(numbers(filter), std::inserter(line.variants, line.variants.end()));
    }
    const auto bar = source.find('|');
    const std::string marks = source.substr(0, bar);
    line.left_over = static_cast<unsigned>(std::ranges::count(marks, '>'));
    line.no_indent = marks.find('=') != std::string::npos;
    line.text = unescape(source.substr(bar + 1));
    return line;
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
        int at = 0;
        for (std::string source; entry.path().extension() == ".txt" && std::getline(stream, source);) {
            ++at;
            if (source.starts_with("== ")) {
                cases.push_back({.name = source.substr(3), .file = file, .at = at});
            } else if (cases.empty() || cases.back().file != file || source.empty() || source[0] == '#') {
                continue;  // a table for another test, or a comment
            } else if (std::string("[|>=").find(source[0]) != std::string::npos) {
                cases.back().lines.push_back(parse_line(source));
            } else {
                parse_key(cases.back(), source);
            }
        }
    }
    return cases;
}

// The expected lines of a frame in one direction.
std::string expected_lines(const Case& decoding, int variant, char direction) {
    const std::string indent = direction == 'T' ? INDENT : "";
    std::string all;
    for (const Line& line : decoding.lines) {
        if (line.in(variant, direction)) {
            for (unsigned count = 0; count < line.left_over + 1 && !line.no_indent; ++count) {
                all += indent;
            }
            all += line.text + "\n";
        }
    }
    return all;
}

// One frame: its record in hex, and the report of it.
struct Frame {
    std::string hex;
    std::string report;
};

Frame make_frame(const Case& decoding, int variant, char direction) {
    const bool basic_rate = variant >= 128;
    const std::string indent = direction == 'T' ? INDENT : "";
    std::string octets = decoding.octets;
    std::string report = indent + indent + (direction == 'T' ? "TRANSMIT" : "RECEIVE") + (basic_rate ? " (5)\n" : "\n");
    if (decoding.kind == 'e') {
        octets = "02 01 00 00 08 02 00 01 05" + octets;
        for (const char* line : {direction == 'T' ? "Response=1   SAPI=0x00" : "Command=1   SAPI=0x00", "TEI=0x00",
                                 "0x00 0x00  Information", "Dest=0   CR=0x0001", "SETUP(0x05)"}) {
            report += indent + line + "\n";
        }
    }
    report += expected_lines(decoding, variant, direction);
    if (decoding.kind == 'e' && octets.find(';') == std::string::npos) {
        octets += " a1";
        if (!report.ends_with(std::string(SENDING_COMPLETE) + "\n")) {
            report += indent + SENDING_COMPLETE + "\n";
        }
    }
    std::ostringstream hex;
    hex << (direction == 'T' ? "54" : "52") << (basic_rate ? " 05 " : " ") << std::hex << bytes_of(octets).size() << " "
        << octets.substr(0, octets.find(';')) << "\n";
    return {hex.str(), report + "\n"};
}

// The report without its first line, the protocol's.
std::string behind_protocol(const std::string& report) { return report.substr(report.find('\n') + 1); }

class Decoding : public testing::TestWithParam<Case> {};

TEST_P(Decoding, Report) {
    const Case& decoding = GetParam();
    for (const int variant : decoding.variants) {
        SCOPED_TRACE("variant " + std::to_string(variant));
        std::ostringstream body;
        body << std::hex << variant << " 02\n";
        std::string expected;
        if (decoding.kind == 't') {
            body << decoding.octets;
            expected = expected_lines(decoding, variant, 'R');
            if (decoding.status == 1 && expected.ends_with("ERROR ABORT \n")) {
                expected.pop_back();  // the one line of a report that is not ended
            }
        } else {
            for (const char direction : {'R', 'T'}) {
                const Frame frame = make_frame(decoding, variant, direction);
                body << frame.hex;
                expected += frame.report;
            }
        }
        EXPECT_EQ(behind_protocol(decode_hex(body.str(), decoding.status)), expected);
        if (decoding.kind != 't' && variant == decoding.variants.front()) {
            const Folder folder;
            folder.write("trace", ZERO_HEADER + bytes_of(body.str()));
            EXPECT_EQ(run(folder, {"trace", "report"}).status, 0);
            EXPECT_EQ(behind_protocol(folder.read("report")), expected) << "as a binary trace";
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

void PrintTo(const Case& decoding, std::ostream* stream) { *stream << decoding.file << ".txt:" << decoding.at; }

INSTANTIATE_TEST_SUITE_P(Cases, Decoding, testing::ValuesIn(read_cases()), test_name);

}  // namespace
