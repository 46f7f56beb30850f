// All DASS2 and DPNSS message types and field codes, against the tables in tests/cases/dpnss_messages.txt.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <sstream>

#include "tests/program.h"

namespace {

using Columns = std::array<std::string, 3>;  // "name ; fields" as DASS2 received, DASS2 transmitted, DPNSS

std::map<int, Columns> messages;
std::map<std::string, std::map<int, std::string>> codes;  // texts by field and code; -1 for any other code

std::string trimmed(const std::string& text) {
    return text.substr(text.find_first_not_of(' '), text.find_last_not_of(' ') - text.find_first_not_of(' ') + 1);
}

void read_tables() {
    std::ifstream file(CASES "/dpnss_messages.txt");
    for (std::string source; std::getline(file, source);) {
        std::istringstream row(source);
        std::string key;
        std::getline(row, key, '|');
        if (key[0] == '#') {
            continue;
        }
        if (key.ends_with(":")) {
            for (std::string code; std::getline(row, code, '|');) {
                codes[key][code.starts_with("other ") ? -1 : std::stoi(code, nullptr, 16)] =
                    code.substr(code.find(' ') + 1);
            }
        } else {
            Columns columns;
            for (std::string& column : columns) {
                std::getline(row, column, '|');
                column = trimmed(column);
                column = column[0] == '=' ? columns.at(static_cast<std::size_t>(column[1] - '1')) : column;
            }
            const int first = std::stoi(key, nullptr, 16);
            for (int octet = first; octet <= (key[2] == '-' ? std::stoi(key.substr(3), nullptr, 16) : first); ++octet) {
                messages[octet] = columns;
            }
        }
    }
}

std::string hex(std::size_t octet) {
    std::ostringstream stream;
    stream << std::hex << octet / 16 << octet % 16;
    return stream.str();
}

// Fields with a code: what stands in the record, and the lines it gives, '>' for the indent.
const std::map<std::string, std::array<std::string, 2>> CODED_FIELDS = {
    {"SIC",
     {" 25",
      ">  Service Indicator Code\n>  1:  0------- Extension Bit\n>      -010---- Type of Information\n"
      ">      ----0101 Speech/Data Rate\n"}},
    {"CAUSE", {" 30", ">  Clear/Reject Cause\n    >0x30  Normal Clearing\n"}},
    {"MAINT", {" 02", ">  Maintenance Action\n    >0x02  Loop-Back Control\n"}},
    {"UDC", {" 07", ">  UDC Control Field\n    >0x07  Invalid SIC\n"}},
};

// A record of one message. Behind the octets of the coded fields stand 44 00: an empty debug record when they are left
// over, the characters of a selection or indication field when there is one.
void add_record(std::string& trace, std::string& report, bool transmitted, int octet, const std::string& message) {
    const std::string type = hex(static_cast<std::size_t>(octet));
    std::string octets = " 02 0b 63 " + type;
    std::string lines = transmitted ? ">TRANSMIT\n" : ">RECEIVE\n";
    std::string left_over = "\nDEBUG: \n\n";
    lines += ">Timeslot 05\n>UA (0x63)\n>" + message.substr(0, message.find(" ;")) + "(0x" + type + ")\n";
    std::istringstream fields(message.substr(std::min(message.find(" ;"), message.size())));
    for (std::string field; fields >> field;) {
        if (field == "SEL" || field == "IND") {
            left_over =
                std::string(field == "SEL" ? ">  Selection" : ">  Indication") + " Field\n    >D" + '\0' + "\n\n";
        } else if (field != ";") {
            octets += CODED_FIELDS.at(field)[0];
            lines += CODED_FIELDS.at(field)[1];
        }
    }
    octets += " 44 00";
    trace += (transmitted ? "54 " : "52 ") + hex(octets.size() / 3) + octets + "\n";
    for (const char letter : lines + left_over) {
        report += letter != '>' ? std::string(1, letter) : transmitted ? INDENT : "";
    }
}

TEST(DpnssMessages, AllTypesInAllContexts) {
    read_tables();
    ASSERT_EQ(messages.size(), 256U);
    for (const std::string variant : {"14", "17", "18"}) {
        for (const bool transmitted : {false, true}) {
            std::string trace = variant + " 02\n";
            std::string report;
            for (const auto& [octet, columns] : messages) {
                add_record(trace, report, transmitted, octet, columns.at(variant != "14" ? 2 : transmitted ? 1 : 0));
            }
            // An empty debug record ends the trace, so that what the last message leaves over is still decoded.
            const std::string decoded = decode_hex(trace + "44 00\n");
            EXPECT_EQ(decoded.substr(decoded.find('\n') + 1), report + "DEBUG: \n\n") << variant << transmitted;
        }
    }
}

TEST(DpnssMessages, AllFieldCodes) {
    read_tables();
    for (const auto& [field, head] :
         std::map<std::string, std::array<std::string, 2>>{{"CAUSE:", {"18", "52 05 02 0b 63 08 "}},
                                                           {"MAINT:", {"17", "52 05 02 0b 63 45 "}},
                                                           {"UDC:", {"14", "52 05 02 0b 63 21 "}}}) {
        std::string trace = head[0] + " 02\n";
        for (std::size_t code = 0; code < 256; ++code) {
            trace += head[1] + hex(code) + "\n";
        }
        const std::string report = decode_hex(trace);
        for (int code = 0; code < 256; ++code) {
            const auto& texts = codes.at(field);
            const std::string& text = texts.contains(code) ? texts.at(code) : texts.at(-1);
            const std::string line = "\n    0x" + hex(static_cast<std::size_t>(code)) + "  " + text + "\n";
            EXPECT_NE(report.find(line), std::string::npos) << line;
        }
    }
}

}  // namespace
