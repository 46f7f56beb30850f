// The program as a whole: command line, protocol codes, numbers, time stamps.
#include "tests/program.h"

#include <regex>

namespace {

const std::string USAGE =
    "QUANDRIX Version 1.00-Alpha\n\nUsage: QUANDRIX SOURCE [DESTINATION] [options]\n"
    "SOURCE          Specifies the input filename to be read.\n"
    "[DESTINATION]   Specifies the output filename to be written.\n"
    "                      If NOT specified then output filename will\n"
    "                      default to SOURCE name with extension \"res\" \n"
    "options:\n[-d]            To run the Hex trace file\n[-p|b]          ISDN Protocol [PRI|BRI]  (DEFAULT=PRI)\n";
const std::string ABORT = "\n    ERROR ABORT ";

TEST(CommandLine, ChoosesReportAndKindOfTrace) {
    // The report, the kind of trace, and the arguments that choose them.
    for (const char* row : {"t.res BINARY t", "t.res hex t -d", "o BINARY t o", "o hex t o -D", "-d hex t -d o",
                            "t.res hex t -d -D", "-d hex t -d o -x-", "t.res hex t -x- -d", "t.res hex t o x y -d",
                            "t.res BINARY t -pri", "o BINARY t o dd", "o BINARY t o -"}) {
        SCOPED_TRACE(row);
        std::string report;
        std::string kind;
        std::string arguments;
        std::getline(std::istringstream(row) >> report >> kind, arguments);
        const Folder folder;
        folder.write("t", kind == "hex" ? ZERO_HEADER + "2 2\n" + RECORD : frames(1));
        const Folder::Outcome outcome = folder.run("QUANDRIX" + arguments);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.terminal,
                  BANNER + (kind == "hex" ? "KORVEL TRACE\n" : "BINARY TRACE \n") + "ISDN Protocol: PRI 4ESS/5ESS\n");
        EXPECT_EQ(folder.read(report), PRI + FRAME);
    }
}

TEST(CommandLine, Errors) {
    const Folder folder;
    EXPECT_EQ(folder.run("QUANDRIX").terminal, USAGE);
    EXPECT_EQ(folder.run("! QUANDRIX t -p && ! QUANDRIX -b o -d && echo both").terminal,
              "Error - Invalid option\n" + USAGE + "Error - Invalid option\n" + USAGE + "both\n");
    // The first argument is SOURCE, never the option that makes a trace hexadecimal.
    EXPECT_EQ(folder.run("QUANDRIX -d || cat -- -d.res").terminal,
              "Failed opening File -d \n" + BANNER + "Failed opening file -d\n");
    EXPECT_EQ(folder.run("echo old >none.res; ! QUANDRIX none && cmp none.res /dev/null").status, 0);
    EXPECT_EQ(folder.run("QUANDRIX no/t").terminal, "Failed opening file no/t.res\n");
}

// Kind and text in the report, then the codes. The terminal shows the text without a blank at its end.
TEST(Protocol, Codes) {
    std::istringstream protocols(
        "PRI UNSPECIFIED PROTOCOL:0 E|PRI 4ESS/5ESS:2 3 100000002|PRI DMS100:7|PRI VN3:9|PRI NTT:B|PRI 1TR6:C|"
        "PRI TPH1856:10|PRI NET5:11|PRI DASS2:14|PRI DPNSS A-End:17|PRI DPNSS B-End:18|PRI NI2:19|"
        "PRI UNKNOWN PROTOCOL:1 4 5 6 8 A D F 12 13 15 16 1A 7F -1 80000000 10000000000000000|"
        "BRI INVALID PROTOCOL:80|BRI 5ESS:81|BRI DMS100 :82|BRI NTT:83|BRI NET3 :84|BRI NI1:85|BRI NI2:86|"
        "BRI UNKNOWN PROTOCOL:87 FF 102 7FFFFFFF");
    for (std::string row; std::getline(protocols, row, '|');) {
        const std::string name = row.substr(0, row.find(':'));
        std::istringstream codes(row.substr(name.size() + 1));
        for (std::string code; codes >> code;) {
            const Folder folder;
            folder.write("t", ZERO_HEADER + code + " 02");  // nothing after it: the run ends before a record
            EXPECT_EQ(folder.run("QUANDRIX t o -d").terminal,
                      BANNER + "KORVEL TRACE\nISDN Protocol: " + name.substr(0, name.find_last_not_of(' ') + 1) + "\n");
            EXPECT_EQ(folder.read("o"), (name[0] == 'P' ? "PROTOCOL TYPE                 : " : "") + name + "\n");
        }
    }
}

// A number is what scanf's "%x" accepts, the end of the file what stdio regards as one.
TEST(Numbers, AsTheScannerReadsThem) {
    for (const char* text : {"  2 2 52 03 02 01 63", "0x2 0X2\t152\v+3\f-FE\r01\n0X63", "2 2 52 -0xFFFFFD 02+1G 63",
                             "2/2 2@ 0052: 3` 2G 1g7 63, x", "ZZ 2 - 2 +-2 52 FFFFFFFFFFFFFF03 02 1 63\n",
                             "2 2 \n52 3 2 1 63-", "2 2 52 03 02 -FFFFFFFFFFFFFFFF 0x63g"}) {
        EXPECT_EQ(decode_hex(text), PRI + FRAME) << text;
    }
    // More than 64 bits are all ones whatever the sign; "0x" alone is 0.
    EXPECT_EQ(decode_hex("2 2 52 3 -10000000000000000 0x 63"),
              PRI + "RECEIVE\nCommand=1   SAPI=0x3f\nTEI=0x00\n    0x63  Unnumbered Acknowledgment\n\n");
    // The end of the file is met when a read goes past the last character. White space after the last number, or after
    // a marker without a record, prevents that: then one more record is expected.
    EXPECT_EQ(decode_hex("2 2"), PRI);
    EXPECT_EQ(decode_hex("2 2\n", 1), PRI + ABORT);
    EXPECT_EQ(decode_hex("2 2 " + RECORD + "52"), PRI + FRAME);
    EXPECT_EQ(decode_hex("2 2 " + RECORD + "52\n", 1), PRI + FRAME + ABORT);
    EXPECT_EQ(decode_hex("2 2 " + RECORD + "52 4 1 2 3", 1), PRI + FRAME + ABORT);
    EXPECT_EQ(decode_hex("2\n", 1), PRI + ABORT);
    EXPECT_EQ(decode_hex("", 1), ABORT);
}

// The longest basic-rate record: taken, read ahead and rejected like any other.
TEST(LongestRecord, OfABasicRateTrace) {
    const std::string octets(251, 'A');
    const std::string hex = std::regex_replace(octets, std::regex("A"), " 41");
    const std::string report = "****** DEBUG MESSAGE (length:251)******\n  " + octets + " 0x1 0x2\n\n";
    const std::string record = "44 00 FF 01 00 02 00" + hex;
    EXPECT_EQ(decode_hex("84 2 " + record + " " + record + "\n"), "BRI NET3 \n" + report + report);
    const std::string damaged = decode_hex("84 2 " + record + " 01 52 00 03 02 01 63\n");
    EXPECT_TRUE(
        damaged.starts_with("BRI NET3 \n\nCORRUPT DATA ENCOUNTERED: 44\n\nCORRUPT DATA ENCOUNTERED:\n00 FF 01 "));
    EXPECT_TRUE(damaged.ends_with("41 41 41 01 \nRECEIVE (0)\n" + FRAME.substr(8)));
}

// The report of a trace with that start time, a time-stamp record for each tick count (little-endian hex), and a frame.
std::string timed(const std::string& start, const std::string& resolution, std::initializer_list<const char*> ticks) {
    std::string body = "2 " + resolution + " ";
    for (const char* count : ticks) {
        body += std::string("50 5 ") + count + " 41 ";
    }
    return decode(bytes_of(start + " 0 0 0 0") + body + RECORD, " -d");
}

TEST(TimeStamps, AreLocalTimeCountedFromTheFirst) {
    const auto report = [](const std::string& start, const std::string& later) {
        return PRI + "ATRACE START TIME (MM/DD/YYYY) : " + start + "\n" +
               (later.empty() ? "" : "A\nTime Stamp : " + later + "\n") + FRAME;
    };
    // 31 December 2003, 23:59:58.600; ticks of 10 ms. Within 140 ticks the counter wraps around.
    EXPECT_EQ(timed("FE 62 F3 3F 58 02", "2", {"F0 FF FF FF", "7C 0 0 0"}),
              report("12/31/2003, 23:59:58.600", "1/1/2004, 0:0:0.0"));
    EXPECT_EQ(timed("0 0 0 0 E7 3", "2", {"F0 FF FF FF"}), report("1/1/1970, 0:0:0.999", ""));
    // Thirty days of 10 ms ticks; the highest tick count at the highest resolution.
    EXPECT_EQ(timed("0 0 0 0 5 0", "2", {"0 0 0 0", "0 14 73 0F"}), report("1/1/1970, 0:0:0.5", "1/31/1970, 0:0:0.5"));
    EXPECT_NE(timed("0 0 0 0 0 0", "7FFFFFFF", {"0 0 0 0", "FF FF FF FF"}).find("Time Stamp : "), std::string::npos);
    // A count below the first one is earlier. A negative resolution counts backwards, and milliseconds below 0 stay.
    EXPECT_EQ(timed("2 0 0 0 F4 1", "2", {"10 0 0 0", "0 0 0 0"}),
              report("1/1/1970, 0:0:2.500", "1/1/1970, 0:0:2.340"));
    EXPECT_EQ(timed("2 0 0 0 0 0", "-1", {"0 0 0 0", "C9 0 0 0"}), report("1/1/1970, 0:0:2.0", "1/1/1970, 0:0:1.-5"));
    // Milliseconds beyond a second are carried once.
    EXPECT_EQ(timed("0 0 0 0 D0 07", "2", {"0 0 0 0"}), report("1/1/1970, 0:0:1.1000", ""));
    // The time of a transmitted frame has the indent too.
    EXPECT_TRUE(decode_hex("2 2 50 4 0 0 0 0 50 4 1 0 0 0 54 3 2 1 63")
                    .ends_with("\n\n" + INDENT + "Time Stamp : 1/1/1970, 0:0:0.10\n" + INDENT + "TRANSMIT\n" + INDENT +
                               "Response=1   SAPI=0x00\n" + INDENT + "TEI=0x00\n" + INDENT +
                               "    0x63  Unnumbered Acknowledgment\n\n"));
}

TEST(BinaryTrace, BecomesHexText) {
    const Folder folder;
    folder.write("t", frames(1) + "D\x12" + std::string(18, '\xAF') + "R");
    EXPECT_EQ(folder.run("QUANDRIX t").status, 0);
    EXPECT_EQ(folder.read("pritemp.log"),
              "02 02 52 03 02 01 63 44 12 af af af af af af af af af af af af af af af af af af\n 52");
    folder.write("t", "short");
    EXPECT_EQ(folder.run("QUANDRIX t").status, 1);
    EXPECT_EQ(folder.read("pritemp.log"), "");
    EXPECT_EQ(folder.read("t.res"), ABORT);
}

}  // namespace
