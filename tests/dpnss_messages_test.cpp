// All DASS2 and DPNSS message types and field codes, against the tables in tests/dpnss_messages.txt.
#include <array>
#include <map>
#include <regex>
#include <vector>

#include "tests/program.h"

namespace {

using Row = std::vector<std::string>;

// The rows of the tables without their first cell, which is the key. Any other line is an error, and so is a second row
// of a message.
std::map<std::string, Row> tables() {
    static const std::regex known("#.*|[0-9a-f]{2}([|][^|]+){3}|(CAUSE|MAINT|UDC)([|][^|]+)+");
    std::map<std::string, Row> rows;
    std::ifstream file(TESTS "/dpnss_messages.txt");
    for (std::string line; std::getline(file, line);) {
        std::istringstream cells(line);
        std::string first;
        std::getline(cells, first, '|');
        EXPECT_TRUE(std::regex_match(line, known) && (first.size() != 2 || !rows.contains(first))) << line;
        for (std::string cell; std::getline(cells, cell, '|');) {
            rows[first].push_back(cell);
        }
    }
    return rows;
}

std::string hex(std::size_t octet) {
    std::ostringstream stream;
    stream << std::hex << octet / 16 << octet % 16;
    return stream.str();
}

// Decodes the trace and returns the lines of its report that match the pattern, without the transmit indent.
std::string lines_of(const std::string& trace, const std::string& pattern) {
    const std::string report = decode_hex(trace);
    const std::regex line("\n(?: {39})?(" + pattern + ")(?=\n)");
    std::string all;
    for (std::sregex_iterator match(report.begin(), report.end(), line), end; match != end; ++match) {
        all += match->str(1) + "\n";
    }
    return all;
}

// The octets that make a field, and its title line.
const std::map<std::string, std::array<std::string, 2>> FIELDS = {
    {"SIC", {" 25", "  Service Indicator Code\n"}}, {"SEL", {" 41", "  Selection Field\n"}},
    {"IND", {" 41", "  Indication Field\n"}},       {"CAUSE", {" 30", "  Clear/Reject Cause\n"}},
    {"MAINT", {" 02", "  Maintenance Action\n"}},   {"UDC", {" 07", "  UDC Control Field\n"}}};

TEST(DpnssMessages, AllTypesInAllContexts) {
    const std::map<std::string, Row> rows = tables();
    for (const std::string variant : {"14", "17", "18"}) {
        for (const std::string direction : {"52", "54"}) {
            std::string trace = variant + " 02\n";
            std::string lines;
            for (std::size_t type = 0; type < 256; ++type) {
                const Row row = rows.contains(hex(type)) ? rows.at(hex(type)) : Row(3, "Unknown Message Type");
                std::string cell = row.at(variant != "14" ? 2 : direction == "54" ? 1 : 0);
                cell = cell[0] == '=' ? row.at(static_cast<std::size_t>(cell[1] - '1')) : cell;
                std::istringstream message(cell);
                std::string name;
                std::getline(message, name, ';');
                lines += name + "(0x" + hex(type) + ")\n";
                std::string octets = " 02 0b 73 " + hex(type);
                for (std::string field; message >> field;) {
                    octets += FIELDS.at(field)[0];
                    lines += FIELDS.at(field)[1];
                }
                trace += direction + " " + hex(octets.size() / 3) + octets + "\n";
            }
            // An empty debug record ends the trace, so that the frame before it is decoded whole.
            EXPECT_EQ(lines_of(trace + "44 00\n", "\\S.*\\(0x..\\)|  [A-Z].+"), lines) << variant << direction;
        }
    }
}

TEST(DpnssMessages, AllFieldCodes) {
    const std::map<std::string, std::array<std::string, 2>> messages = {{"CAUSE", {"18 02 ", "52 05 02 0b 63 08 "}},
                                                                        {"MAINT", {"17 02 ", "52 05 02 0b 63 45 "}},
                                                                        {"UDC", {"14 02 ", "52 05 02 0b 63 21 "}}};
    for (const auto& [field, message] : messages) {
        Row row = tables().at(field);
        row[0].insert(0, "ff");
        std::string trace = message[0];
        std::string lines;
        for (const std::string& cell : row) {
            trace += message[1] + cell.substr(0, 2) + "\n";
            lines += "    0x" + cell + "\n";
        }
        EXPECT_EQ(lines_of(trace, "    0x.*"), lines);
    }
}

}  // namespace
