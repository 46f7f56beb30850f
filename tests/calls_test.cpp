// The cases of tests/call_cases: frames in, rows of quandrix-calls out. The first lines of the first file describe
// their format.
#include <cmath>
#include <map>
#include <vector>

#include "tests/case_files.h"
#include "tests/program.h"

namespace {

const std::map<std::string, int> MESSAGES = {
    {"ALERTING", 0x01},    {"PROCEEDING", 0x02}, {"PROGRESS", 0x03},   {"SETUP", 0x05},   {"CONNECT", 0x07},
    {"CONNECT_ACK", 0x0F}, {"RESUME_REJ", 0x22}, {"SUSPEND", 0x25},    {"RESUME", 0x26},  {"SUSPEND_ACK", 0x2D},
    {"RESUME_ACK", 0x2E},  {"DISCONNECT", 0x45}, {"RESTART", 0x46},    {"RELEASE", 0x4D}, {"COMPLETE", 0x5A},
    {"FACILITY", 0x62},    {"REGISTER", 0x64},   {"STATUS_ENQ", 0x75}, {"INFO", 0x7B},    {"STATUS", 0x7D},
};

std::string hex(int octet) {
    std::ostringstream text;
    text << std::hex << octet << " ";
    return text.str();
}

// The columns of a table, and the rows that are expected in them.
struct Table {
    std::string option;  // "-m", or none
    std::string columns;
    std::string rows{};
};

// A case: the records of a trace, made from its lines, and tables.
struct Case {
    std::string name;
    int code = 0x84;
    std::string records{};
    std::map<std::string, int> sent{};  // how many information frames, by line, TEI and direction
    std::vector<Table> tables{};

    void add_record(char marker, const std::string& line, const std::string& octets) {
        records += hex(marker) + line + " " + hex(static_cast<int>(bytes_of(octets).size())) + octets + "\n";
    }
};

// "70 03 81 "12"" with its quoted characters as octets.
std::string octets_of(const std::string& source) {
    std::string octets;
    bool quoted = false;
    for (const char character : source) {
        const bool quote = character == '"';
        octets += quote ? " " : quoted ? hex(character) : std::string(1, character);
        quoted = quoted != quote;
    }
    return octets;
}

// "1.500" seconds: a time-stamp record, in ticks of 10 ms.
void add_time(Case& test, const std::string& seconds) {
    const auto ticks = static_cast<int>(std::lround(std::stod(seconds) * 100));
    test.add_record('P', test.code >= 0x80 ? "00" : "", hex(ticks % 256) + hex(ticks / 256) + "00 00");
}

// Direction, line and TEI, N(S), call reference, message, elements. R is the network.
void add_message(Case& test, const std::smatch& part) {
    const std::string link = part.str(1) + part.str(2) + part.str(3);
    const int terminal = std::stoi(part[3]);
    const int number = part[4].matched ? std::stoi(part[4]) : test.sent[link]++;
    const std::string type = MESSAGES.contains(part[6]) ? hex(MESSAGES.at(part[6])) : part.str(6);
    const std::string reference = part[5] == "-" ? "" : std::regex_replace(part.str(5), std::regex(".."), " $&");
    const std::string head = (part[1] == "R" ? "02 " : "00 ") + hex(2 * terminal + 1);
    const std::string control = terminal == 127 ? "03" : hex(2 * number % 256) + "00";
    test.add_record(part.str(1)[0], part[2],
                    head + control + " 08 " + hex(static_cast<int>(reference.size() / 3)) + reference + " " + type +
                        " " + octets_of(part[7]));
}

// Adds a title, a table or a record. False when it has no known form.
bool add(std::vector<Case>& cases, const std::string& source) {
    static const std::regex title(R"(== (?:\[([0-9A-F]{2})\] )?(\w.*))");
    static const std::regex time(R"(@ ([0-9.]+))");
    static const std::regex message(R"(([RT]) (?:(\d+)\.)?(\d+) (?:#(\d+) )?([0-9A-F]+|-) (\w+)((?: .*)?))");
    static const std::regex frame(R"(([RT]) (?:(\d+) )?frame:(.*))");
    static const std::regex table(R"(columns( -m)?: (.*))");
    static const std::regex row(R"(> (.*))");
    std::smatch part;
    if (std::regex_match(source, part, title)) {
        cases.emplace_back().name = part[2];
        cases.back().code = part[1].matched ? std::stoi(part[1], nullptr, 16) : 0x84;
    } else if (cases.empty() || source.starts_with('#')) {
        return source.starts_with('#');
    } else if (std::regex_match(source, part, time)) {
        add_time(cases.back(), part[1]);
    } else if (std::regex_match(source, part, message)) {
        add_message(cases.back(), part);
    } else if (std::regex_match(source, part, frame)) {
        cases.back().add_record(part.str(1)[0], part[2], octets_of(part[3]));
    } else if (std::regex_match(source, part, table)) {
        cases.back().tables.push_back({part[1], part[2]});
    } else if (std::regex_match(source, part, row) && !cases.back().tables.empty()) {
        cases.back().tables.back().rows += part.str(1) + "\n";
    } else {
        return false;
    }
    return true;
}

// Adds what a line of a file holds: a title, the like, or records with semicolons between.
bool add_line(std::vector<Case>& cases, const std::string& line) {
    static const std::regex records("[@RT] .*");
    std::istringstream parts(std::regex_match(line, records) ? std::regex_replace(line, std::regex("; "), "\n") : line);
    bool known = true;
    for (std::string part; known && std::getline(parts, part);) {
        known = add(cases, part);
    }
    return known;
}

std::vector<Case> all_cases() {
    std::vector<Case> cases;
    for_each_line("call_cases",
                  [&](const std::string& /*place*/, const std::string& line) { return add_line(cases, line); });
    return cases;
}

class Calls : public testing::TestWithParam<Case> {};

TEST_P(Calls, Tables) {
    const Case& test = GetParam();
    const Folder folder;
    folder.write("trace", ZERO_HEADER + hex(test.code) + "02\n" + test.records);
    EXPECT_FALSE(test.tables.empty());
    for (const Table& table : test.tables) {
        EXPECT_EQ(folder.run(CALLS " -d trace" + table.option + " >table 2>errors").status, 0) << folder.read("errors");
        const std::string columns = std::regex_replace(table.columns, std::regex(" "), ",");
        EXPECT_EQ(folder.run("mlr --itsv --onidx cut -o -f " + columns + " table").terminal, table.rows);
    }
}

void PrintTo(const Case& test, std::ostream* stream) { *stream << test.name; }

INSTANTIATE_TEST_SUITE_P(, Calls, testing::ValuesIn(all_cases()),
                         [](const auto& test) { return test_name(test.param.name); });

}  // namespace
