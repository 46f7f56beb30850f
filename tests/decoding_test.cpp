// The cases of tests/cases: octets in, report lines out. CONTRIBUTING.md describes their format.
#include <algorithm>
#include <map>
#include <vector>

#include "tests/case_files.h"
#include "tests/program.h"

namespace {

const std::string SENDING_COMPLETE = "  1:           SENDING COMPLETE(0xa1)\n";

// "2 7 BRI" as protocol codes.
std::vector<int> codes(std::string list) {
    list = std::regex_replace(list, std::regex("ALL"), "0 2 7 9 11 12 16 17 25 BRI");
    std::istringstream stream(std::regex_replace(list, std::regex("BRI"), "129 130 131 132 133 134"));
    return {std::istream_iterator<int>(stream), {}};
}

// An expected line.
struct Line {
    std::string filter;  // where it is expected: "9 16", "!9 16" (not under these), "R", "T", or everywhere
    std::string text;    // each '>' before it is one more indent when transmitted

    [[nodiscard]] bool in(int variant, char direction) const {
        const bool all_but = filter.starts_with('!');
        const bool named = std::ranges::count(codes(filter.substr(all_but ? 1 : 0)), variant) != 0;
        return filter.empty() || filter[0] == direction || named != all_but;
    }

    [[nodiscard]] std::string report(char direction) const {
        const auto more = std::min(text.find_first_not_of('>'), text.size());
        return std::string(direction == 'T' ? (more + 1) * INDENT.size() : 0, ' ') + text.substr(more) + "\n";
    }
};

struct Case {
    std::string place;  // of the title, like "FILE:LINE"
    std::string title;
    std::string variants;
    std::string kind = "element";  // of its octets, or "frame", or "trace"
    std::string octets{};
    std::vector<Line> lines{};
};

// So many of the lines that follow the title and the length of the last element but one.
std::vector<Line> repeated(const std::vector<Line>& lines, std::ptrdiff_t count) {
    const auto is_length = [](const Line& line) { return line.text.starts_with("  2:           IE Length(0x"); };
    const auto last = std::find_if(lines.rbegin(), lines.rend(), is_length);
    const auto first = std::find_if(std::next(last), lines.rend(), is_length).base();
    return {first, first + count};
}

// "|line|[filter]line". The filter is for all lines without their own; the column comes before every line.
void add_lines(std::vector<Line>& lines, const std::string& filter, const std::string& column, std::string source) {
    static const std::regex element(R"(\|(\[[^\]]*\])?(>*)@([^|]*) (..) (..))");
    source = std::regex_replace(source, element, "|$1$2  1:           $3(0x$4)|$1  2:           IE Length(0x$5)");
    source = std::regex_replace(source, std::regex("~"), "------- Extension Bit");
    source = std::regex_replace(source, std::regex(R"(([|>\]])([-01]{8}))"), "$1      $2");
    static const std::regex line(R"(\|(?:\[([^\]]*)\])?([^|]*))");
    for (std::sregex_iterator match(source.begin(), source.end(), line), end; match != end; ++match) {
        std::string text = match->str(2);
        if (text.starts_with('"')) {
            std::ranges::copy(repeated(lines, std::stoi(text.substr(1))), std::back_inserter(lines));
            continue;
        }
        for (auto escape = text.find("\\x"); escape != std::string::npos; escape = text.find("\\x", escape)) {
            text.replace(escape, 4, bytes_of(text.substr(escape + 2, 2)));
        }
        lines.push_back({(*match)[1].matched ? match->str(1) : filter, column + text});
    }
}

// Adds what a line of a file holds: a new case, or octets and lines of the last one. False when it holds neither.
bool add(std::vector<Case>& cases, const std::string& place, const std::string& source) {
    static const std::regex title(R"(== (?:\[((?:(?:ALL|BRI|[0-9]+) ?)+)\] )?([^[].*))");
    static const std::regex octets(
        R"((?:(frame|trace): )?((?:[0-9A-F]{2,3}(?: |$|(?=\|)))*)(?:(?:\[([^\]]+)\])?(T?)(\|.*))?)");
    std::smatch part;
    if (std::regex_match(source, part, title)) {
        cases.push_back({place, part.str(2), part[1].matched ? part.str(1) : "2"});
        return true;
    }
    if (cases.empty() || !std::regex_match(source, part, octets)) {
        return source.starts_with('#');
    }
    Case& decoding = cases.back();
    decoding.kind = part[1].matched ? part.str(1) : decoding.kind;
    decoding.octets += part.str(2) + " ";
    add_lines(decoding.lines, part[3], part.length(4) != 0 ? INDENT : "", part[5]);
    return true;
}

std::vector<Case> all_cases() {
    std::vector<Case> cases;
    for_each_line("cases", [&](const std::string& place, const std::string& line) { return add(cases, place, line); });
    return cases;
}

std::string expected_lines(const std::vector<Line>& lines, int variant, char direction) {
    std::string all;
    for (const Line& line : lines) {
        all += line.in(variant, direction) ? line.report(direction) : "";
    }
    return all;
}

// Adds the record of a frame to a trace in hex, and its lines to the report.
void add_frame(std::ostream& trace, std::string& report, const Case& decoding, int variant, char direction) {
    const bool basic_rate = variant >= 128;
    const std::string line = basic_rate ? " (5)" : "";
    std::vector<Line> head = {{"R", "RECEIVE" + line}, {"T", ">TRANSMIT" + line}};
    std::string octets = decoding.octets;
    if (decoding.kind == "element") {
        octets = "02 01 00 00 08 02 00 01 05 " + octets + "a1";
        add_lines(head, "", "", "|[R]Command=1   SAPI=0x00|[T]Response=1   SAPI=0x00|TEI=0x00|0x00 0x00  Information");
        add_lines(head, "", "", "|Dest=0   CR=0x0001|SETUP(0x05)");
    }
    report += expected_lines(head, variant, direction) + expected_lines(decoding.lines, variant, direction);
    if (decoding.kind == "element" && !report.ends_with(SENDING_COMPLETE)) {
        report += (direction == 'T' ? INDENT : "") + SENDING_COMPLETE;
    }
    trace << (direction == 'T' ? "54 " : "52 ") << (basic_rate ? "05 " : "") << bytes_of(octets).size() << " " << octets
          << "\n";
    report += "\n";
}

// A case under one code: the trace in hex without its header, and what is expected from it.
struct Trial {
    std::string trace;
    std::string report;  // without the line of the protocol
    int status;
};

Trial trial_of(const Case& decoding, int variant) {
    std::ostringstream trace;
    trace << std::hex << variant << " 02\n";
    std::string report;
    if (decoding.kind == "trace") {
        trace << decoding.octets;
        report = expected_lines(decoding.lines, variant, 'R');
    } else {
        add_frame(trace, report, decoding, variant, 'R');
        add_frame(trace, report, decoding, variant, 'T');
    }
    const bool aborted = report.ends_with("ERROR ABORT \n");
    const bool failed = aborted || report.find("Invalid Tx/Rx value") != std::string::npos;
    if (aborted) {
        report.pop_back();  // the only line of a report without a line end
    }
    return {trace.str(), report, failed ? 1 : 0};
}

// The first lines in which two files of the folder differ, the expected ones with a minus. Blanks at line ends are
// marked.
std::string diff(const Folder& folder) {
    return folder
        .run(R"(diff -a -U 2 --label expected --label report expected report | cat -v | sed 's/\(..*\) $/\1<blank>/' |
                sed '20 { $!s/.*/.../; q }')")
        .terminal;
}

// What the program prints after its banner and the protocol.
std::string complaints(const std::string& terminal) {
    return terminal.substr(terminal.find('\n', terminal.find("ISDN Protocol")) + 1);
}

// Decodes a trace and returns what differs from the expectation; nothing when all is the same.
std::string differences(const Trial& trial, const std::string& trace, const std::string& option) {
    const Folder folder;
    folder.write("trace", trace);
    const Folder::Outcome outcome = folder.run("QUANDRIX trace report" + option);
    const std::string report = folder.read("report");
    const std::string expected = report.substr(0, report.find('\n') + 1) + trial.report;
    std::string found;
    if (outcome.status != trial.status) {
        found = "expected exit status " + std::to_string(trial.status) + ", but it is " +
                std::to_string(outcome.status) + "\n" + complaints(outcome.terminal);
    }
    if (report != expected) {
        folder.write("expected", expected);
        found += diff(folder);
    }
    return found;
}

class Decoding : public testing::TestWithParam<Case> {};

TEST_P(Decoding, Report) {
    const Case& decoding = GetParam();
    SCOPED_TRACE(decoding.place + ": " + decoding.title);
    EXPECT_FALSE(bytes_of(decoding.octets).empty() || decoding.lines.empty());
    const std::vector<int> variants = codes(decoding.variants);
    const bool whole = decoding.kind == "trace";
    std::map<std::string, std::string> failures;  // what differs, and the codes under which it does
    const auto note = [&](const std::string& found, const std::string& code) {
        failures[found] += (failures[found].empty() ? "" : ", ") + code;
    };
    for (const int variant : variants) {
        const Trial trial = trial_of(decoding, variant);
        const std::string code = std::to_string(variant);
        note(differences(trial, ZERO_HEADER + trial.trace, " -d"), code);
        if (!whole && variant == variants[0]) {
            note(differences(trial, ZERO_HEADER + bytes_of(trial.trace), ""), code + " as a binary trace");
        }
    }
    failures.erase("");
    for (const auto& [found, where] : failures) {
        ADD_FAILURE() << "under code " << where << ":\n" << found;
    }
    for (const Line& line : decoding.lines) {
        const auto expected = [&](int variant) { return line.in(variant, 'R') || (!whole && line.in(variant, 'T')); };
        EXPECT_TRUE(std::ranges::any_of(variants, expected))
            << "under no code, for the filter is [" << line.filter << "]: " << line.text;
    }
}

void PrintTo(const Case& decoding, std::ostream* stream) { *stream << decoding.title; }

INSTANTIATE_TEST_SUITE_P(, Decoding, testing::ValuesIn(all_cases()), [](const auto& decoding) {
    const std::string& place = decoding.param.place;
    return test_name(std::filesystem::path(place).stem().string() + "_" + decoding.param.title);
});

}  // namespace
