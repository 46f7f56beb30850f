// All DASS2 and DPNSS message types and field codes, against the tables in tests/cases/dpnss_messages.txt.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <map>
#include <sstream>

#include "tests/program.h"

namespace {

struct Message {
    std::string name;
    std::string fields;  // "SIC SEL"
};

using Columns = std::array<Message, 3>;  // DASS2 received, DASS2 transmitted, DPNSS

struct Tables {
    std::map<int, Columns> messages;
    std::map<std::string, std::map<int, std::string>> codes;  // by field; -1 for any other code
};

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

Columns parse_columns(std::istringstream& row) {
    Columns columns;
    for (Message& column : columns) {
        std::string text;
        std::getline(row, text, '|');
        text = trimmed(text);
        if (text[0] == '=') {
            column = columns.at(static_cast<std::size_t>(text[1] - '1'));
        } else {
            column = {trimmed(text.substr(0, text.find(';'))), text.substr(std::min(text.find(';'), text.size()))};
        }
    }
    return columns;
}

Tables read_tables() {
    Tables tables;
    std::ifstream file(std::string(CASES) + "/dpnss_messages.txt");
    for (std::string source; std::getline(file, source);) {
        std::istringstream row(source);
        std::string key;
        std::getline(row, key, '|');
        if (const auto colon = key.find(':'); colon != std::string::npos && key[0] != '#') {
            for (std::string code; std::getline(row, code, '|');) {
                const bool other = code.starts_with("other ");
                tables.codes[key.substr(0, colon)][other ? -1 : std::stoi(code, nullptr, 16)] =
                    code.substr(code.find(' ') + 1);
            }
        } else if (key[0] != '#') {
            const int first = std::stoi(key, nullptr, 16);
            const int last = key.find('-') == std::string::npos ? first : std::stoi(key.substr(3), nullptr, 16);
            const Columns columns = parse_columns(row);
            for (int octet = first; octet <= last; ++octet) {
                tables.messages[octet] = columns;
            }
        }
    }
    return tables;
}

std::string hex(int octet) {
    std::array<char, 3> digits{};
    std::snprintf(digits.data(), digits.size(), "%02x", static_cast<unsigned>(octet) & 0xFFU);
    return digits.data();
}

std::string coded_field(const std::string& indent, const std::string& title, int code, const std::string& text) {
    return indent + "  " + title + "\n    " + indent + "0x" + hex(code) + "  " + text + "\n";
}

// A record of one message in timeslot 5. Behind the octets of the coded fields stand 44 00: an empty debug record when
// they are left over, the characters of a selection or indication field when there is one.
void add_record(std::string& trace, std::string& report, char direction, int octet, const Message& message) {
    const std::string indent = direction == 'T' ? INDENT : "";
    const auto has = [&](const char* field) { return message.fields.find(field) != std::string::npos; };
    std::string octets = hex(octet);
    report += indent + (direction == 'T' ? "TRANSMIT\n" : "RECEIVE\n") + indent + "Timeslot 05\n" + indent +
              "UA (0x63)\n" + indent + message.name + "(0x" + hex(octet) + ")\n";
    if (has("SIC")) {
        octets += " 25";
        report += indent + "  Service Indicator Code\n" + indent + "  1:  0------- Extension Bit\n" + indent +
                  "      -010---- Type of Information\n" + indent + "      ----0101 Speech/Data Rate\n";
    }
    if (has("CAUSE")) {
        octets += " 30";
        report += coded_field(indent, "Clear/Reject Cause", 0x30, "Normal Clearing");
    }
    if (has("MAINT")) {
        octets += " 02";
        report += coded_field(indent, "Maintenance Action", 0x02, "Loop-Back Control");
    }
    if (has("UDC")) {
        octets += " 07";
        report += coded_field(indent, "UDC Control Field", 0x07, "Invalid SIC");
    }
    octets += " 44 00";
    if (has("SEL") || has("IND")) {
        report += indent + (has("SEL") ? "  Selection" : "  Indication") + " Field\n    " + indent;
        report += std::string("D\0\n\n", 4);
    } else {
        report += "\nDEBUG: \n\n";
    }
    trace += (direction == 'T' ? "54 " : "52 ") + hex(static_cast<int>(octets.size() + 1) / 3 + 3) + " 02 0b 63 " +
             octets + "\n";
}

TEST(DpnssMessages, AllTypesInAllContexts) {
    const Tables tables = read_tables();
    ASSERT_EQ(tables.messages.size(), 256U);
    for (const char* variant : {"14", "17", "18"}) {
        for (const char direction : {'R', 'T'}) {
            const std::size_t column = std::string(variant) != "14" ? 2 : direction == 'R' ? 0 : 1;
            std::string trace = std::string(variant) + " 02\n";
            std::string report;
            for (const auto& [octet, columns] : tables.messages) {
                add_record(trace, report, direction, octet, columns.at(column));
            }
            // An empty debug record ends the trace, so that what the last message leaves over is still decoded.
            const std::string decoded = decode_hex(trace + "44 00\n");
            EXPECT_EQ(decoded.substr(decoded.find('\n') + 1), report + "DEBUG: \n\n") << variant << direction;
        }
    }
}

TEST(DpnssMessages, AllFieldCodes) {
    const Tables tables = read_tables();
    struct Field {
        const char* name;
        const char* title;
        const char* variant;
        const char* octet;
    };
    for (const Field& field :
         {Field{"CAUSE", "Clear/Reject Cause", "18", "08"}, Field{"MAINT", "Maintenance Action", "17", "45"},
          Field{"UDC", "UDC Control Field", "14", "21"}}) {
        const auto& texts = tables.codes.at(field.name);
        std::string trace = std::string(field.variant) + " 02\n";
        for (int code = 0; code < 256; ++code) {
            trace += std::string("52 05 02 0b 63 ") + field.octet + " " + hex(code) + "\n";
        }
        const std::string report = decode_hex(trace);
        for (int code = 0; code < 256; ++code) {
            const auto text = texts.contains(code) ? texts.find(code) : texts.find(-1);
            const std::string expected = coded_field("", field.title, code, text->second);
            EXPECT_NE(report.find(expected), std::string::npos) << expected;
        }
    }
}

}  // namespace
