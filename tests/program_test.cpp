// The program as a whole: command line, protocol codes, the tables of layers 2 and 3, numbers, time stamps, files.
#include "tests/program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace fs = std::filesystem;

namespace {

const std::string BANNER =
    "\nVelmarix ISDN Trace Utility\nOffline decoder of ISDN D-channel traces\nVersion 1.00-Alpha-0.10\n";
const std::string USAGE =
    "QUANDRIX Version 1.00-Alpha\n\nUsage: QUANDRIX SOURCE [DESTINATION] [options]\n"
    "SOURCE          Specifies the input filename to be read.\n"
    "[DESTINATION]   Specifies the output filename to be written.\n"
    "                      If NOT specified then output filename will\n"
    "                      default to SOURCE name with extension \"res\" \n"
    "options:\n[-d]            To run the Hex trace file\n[-p|b]          ISDN Protocol [PRI|BRI]  (DEFAULT=PRI)\n";
const std::string ABORT = "\n    ERROR ABORT ";
const std::string PRI = "PROTOCOL TYPE                 : PRI 4ESS/5ESS\n";
const std::string FRAME = "RECEIVE\nCommand=1   SAPI=0x00\nTEI=0x00\n    0x63  Unnumbered Acknowledgment\n\n";
const std::string RECORD = "52 03 02 01 63";  // of that frame

// That record, many times, as bytes.
std::string frames(std::size_t count) {
    std::string all;
    for (; count > 0; --count) {
        all += bytes_of(RECORD);
    }
    return all;
}

std::string cannot_open_report(const std::string& name) {
    return "ERROR:Fail to open " + name +
           " file.\nInfo:The destination file may exist on your system and ready only\nSuggestion:\n"
           "Change the permission. OR Delete the file to re-use same name. OR Use different destination file name.\n";
}

TEST(CommandLine, ChoosesReportAndKindOfTrace) {
    struct {
        std::vector<std::string> arguments;
        std::string report;
        bool hex;
    } const rows[] = {
        {{"t"}, "t.res", false},
        {{"t", "-d"}, "t.res", true},
        {{"t", "o"}, "o", false},
        {{"t", "o", "-D"}, "o", true},
        {{"t", "-d", "o"}, "-d", true},
        {{"t", "-d", "-D"}, "t.res", true},
        {{"t", "-d", "o", "-x-"}, "-d", true},
        {{"t", "o", "x", "y", "-d"}, "t.res", true},
        {{"t", "-pri"}, "t.res", false},
        {{"t", "o", "dd"}, "o", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.arguments));
        const Folder folder;
        folder.write("t", row.hex ? ZERO_HEADER + "2 2\n" + RECORD : ZERO_HEADER + bytes_of("2 2 " + RECORD));
        const Outcome result = run(folder, row.arguments);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.terminal,
                  BANNER + (row.hex ? "KORVEL TRACE\n" : "BINARY TRACE \n") + "ISDN Protocol: PRI 4ESS/5ESS\n");
        EXPECT_EQ(folder.read(row.report), PRI + FRAME);
    }
}

TEST(CommandLine, Errors) {
    const Folder folder;
    EXPECT_EQ(run(folder, {}).terminal, USAGE);
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"t", "-p"}, {"-b", "o", "-d"}}) {
        const Outcome result = run(folder, arguments);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.terminal, "Error - Invalid option\n" + USAGE);
    }
    // The first argument is SOURCE, never the option that makes a trace hexadecimal.
    EXPECT_EQ(run(folder, {"-d"}).terminal, "Failed opening File -d \n" + BANNER + "Failed opening file -d\n");
    EXPECT_TRUE(fs::exists(folder.path("-d.res")));
    folder.write("none.res", "an old report");
    EXPECT_EQ(run(folder, {"none"}).status, 1);
    EXPECT_EQ(folder.read("none.res"), "");
    EXPECT_EQ(run(folder, {"no/t"}).terminal, "Failed opening file no/t.res\n");
}

TEST(Protocol, Codes) {
    struct {
        std::string codes;
        std::string terminal;
        std::string report;
    } const rows[] = {
        {"0 E", "PRI UNSPECIFIED PROTOCOL", "UNSPECIFIED PROTOCOL"},
        {"2 3 100000002", "PRI 4ESS/5ESS", "4ESS/5ESS"},
        {"7", "PRI DMS100", "DMS100"},
        {"9", "PRI VN3", "VN3"},
        {"B", "PRI NTT", "NTT"},
        {"C", "PRI 1TR6", "1TR6"},
        {"10", "PRI TPH1856", "TPH1856"},
        {"11", "PRI NET5", "NET5"},
        {"14", "PRI DASS2", "DASS2"},
        {"17", "PRI DPNSS A-End", "DPNSS A-End"},
        {"18", "PRI DPNSS B-End", "DPNSS B-End"},
        {"19", "PRI NI2", "NI2"},
        {"1 4 D F 7F -1 80000000 10000000000000000", "PRI UNKNOWN PROTOCOL", "UNKNOWN PROTOCOL"},
        {"80", "BRI INVALID PROTOCOL", "INVALID PROTOCOL"},
        {"81", "BRI 5ESS", "5ESS"},
        {"82", "BRI DMS100", "DMS100 "},
        {"83", "BRI NTT", "NTT"},
        {"84", "BRI NET3", "NET3 "},
        {"85", "BRI NI1", "NI1"},
        {"86", "BRI NI2", "NI2"},
        {"87 FF 102 7FFFFFFF", "BRI UNKNOWN PROTOCOL", "UNKNOWN PROTOCOL"},
    };
    for (const auto& row : rows) {
        std::istringstream codes(row.codes);
        for (std::string code; codes >> code;) {
            const Folder folder;
            folder.write("t", ZERO_HEADER + code + " 02");  // nothing behind it: the run ends before a record
            const Outcome result = run(folder, {"t", "o", "-d"});
            EXPECT_EQ(result.terminal, BANNER + "KORVEL TRACE\nISDN Protocol: " + row.terminal + "\n") << code;
            const bool basic_rate = row.terminal[0] == 'B';
            EXPECT_EQ(folder.read("o"),
                      (basic_rate ? "BRI " : "PROTOCOL TYPE                 : PRI ") + row.report + "\n");
        }
    }
}

TEST(Layer2, ControlFields) {
    std::string trace;
    std::string report;
    for (const char* line :
         {"01 A5  Receive Ready", "05 5A  Receive Not Ready", "09 12  Reject", "02 34  Information",
          "FC 35  Information", "6F  Set Asynchronous Balanced Mode", "7F  Set Asynchronous Balanced Mode",
          "0F  Disconnected Mode", "1F  Disconnected Mode", "03  Unnumbered Information", "13  Unnumbered Information",
          "43  Disconnect", "53  Disconnect", "63  Unnumbered Acknowledgment", "73  Unnumbered Acknowledgment",
          "87  Frame Reject", "97  Frame Reject", "AF  Exchange Identification", "BF  Exchange Identification"}) {
        std::string octets(line);
        const std::string name = octets.substr(octets.find("  "));
        octets.erase(octets.find("  "));
        trace += (octets.size() > 2 ? "52 4 FD FD " : "52 3 FD FD ") + octets + "\n";
        std::ranges::transform(octets, octets.begin(), [](unsigned char digit) { return std::tolower(digit); });
        report += "RECEIVE\nResponse=0    SAPI=0x3f\nTEI=0x7e\n" +
                  (octets.size() > 2 ? "0x" + octets.substr(0, 2) + " 0x" + octets.substr(3) : "    0x" + octets) +
                  name + "\n\n";
    }
    EXPECT_EQ(decode_hex("2 2 " + trace), PRI + report);
}

TEST(Layer3, MessageTypes) {
    std::string trace;
    std::string report;
    for (const char* line : {"01 ALERTING",
                             "02 CALL PROCEEDING",
                             "03 CALL PROGRESS",
                             "05 SETUP",
                             "07 CALL CONNECT",
                             "0d SETUP_ACK",
                             "0f CALL CONNECT ACKNOWLEDGE",
                             "20 USER INFORMATION",
                             "45 CALL DISCONNECT",
                             "46 RESTART",
                             "4d RELEASE",
                             "4e RESTART ACKNOWLEDGE",
                             "5a RELEASE COMPLETE",
                             "62 CALL FACILITY",
                             "64 REGISTER",
                             "6a CALL FACILITY ACKNOWLEDGE",
                             "6e NOTIFY",
                             "72 CALL FACILITY REJECT",
                             "75 STATUS EQUIRY",
                             "79 CONGESTION CONTROL",
                             "7b INFORMATION",
                             "7d STATUS"}) {
        const std::string octet(line, 2);
        trace += "54 08 01 03 0A 00 08 01 7F " + octet + "\n";
        report += INDENT + INDENT + "TRANSMIT\n" + INDENT + "Command=0    SAPI=0x00\n" + INDENT + "TEI=0x01\n" +
                  INDENT + "0x0a 0x00  Information\n" + INDENT + "Dest=0   CR=0x7f\n" + INDENT + (line + 3) + "(0x" +
                  octet + ")\n\n";
    }
    EXPECT_EQ(decode_hex("2 2 " + trace), PRI + report);
}

// What scanf's "%x" takes for a number, and what stdio takes for the end of a file.
TEST(Numbers, AsTheScannerReadsThem) {
    const std::string report = PRI + FRAME;
    for (const char* text : {"2 2 52 03 02 01 63", "0x2 0X2\t152\v+3\f-FE\r01\n0X63", "2 2 52 -0xFFFFFD 02+1G 63",
                             "2/2 2@ 0052: 3` 2G 1g7 63, x", "ZZ 2 - 2 +-2 52 FFFFFFFFFFFFFF03 02 1 63\n",
                             "2 2 \n52 3 2 1 63-", "2 2 52 03 02 01 0x63g"}) {
        EXPECT_EQ(decode_hex(text), report) << text;
    }
    // More than 64 bits are all ones whatever the sign; "0x" alone is 0.
    EXPECT_EQ(decode_hex("2 2 52 3 -10000000000000000 0x 63"),
              PRI + "RECEIVE\nCommand=1   SAPI=0x3f\nTEI=0x00\n    0x63  Unnumbered Acknowledgment\n\n");
    // The end of the file is met when a read goes past the last character: a white space behind the last number, or a
    // lone marker with one, keeps it from being met.
    EXPECT_EQ(decode_hex("2 2"), PRI);
    EXPECT_EQ(decode_hex("2 2\n", 1), PRI + ABORT);
    EXPECT_EQ(decode_hex("2 2 " + RECORD + " 52"), report);
    EXPECT_EQ(decode_hex("2 2 " + RECORD + " 52\n", 1), report + ABORT);
    EXPECT_EQ(decode_hex("2 2 " + RECORD + " 52 4 1 2 3", 1), report + ABORT);
    EXPECT_EQ(decode_hex("2\n", 1), PRI + ABORT);
    EXPECT_EQ(decode_hex("", 1), ABORT);
}

// The longest basic-rate record: framed, held back and given up like any other.
TEST(LongestRecord, OfABasicRateTrace) {
    std::string octets;
    for (int octet = 0; octet < 251; ++octet) {
        octets += " 41";
    }
    const std::string record = "44 00 FF 01 00 02 00" + octets;
    EXPECT_EQ(decode_hex("84 2 " + record + " " + record + "\n").substr(10),
              "****** DEBUG MESSAGE (length:251)******\n  " + std::string(251, 'A') + " 0x1 0x2\n\n" +
                  "****** DEBUG MESSAGE (length:251)******\n  " + std::string(251, 'A') + " 0x1 0x2\n\n");
    const std::string damaged = decode_hex("84 2 " + record + " 01 52 00 03 02 01 63\n");
    EXPECT_TRUE(
        damaged.starts_with("BRI NET3 \n\nCORRUPT DATA ENCOUNTERED: 44\n\nCORRUPT DATA ENCOUNTERED:\n00 FF 01 00 "));
    EXPECT_TRUE(damaged.ends_with("41 41 41 01 \nRECEIVE (0)\n" + FRAME.substr(8)));
}

// Seconds and milliseconds of the trace header, little-endian, in hex.
std::string header(const std::string& start) { return bytes_of(start + " 0 0 0 0"); }

// A time-stamp record of a tick count in hex, little-endian.
std::string time_stamp(const std::string& ticks, const std::string& text = "") {
    return "50 " + std::to_string(4 + text.size() / 3) + " " + ticks + text + " ";
}

std::string decode_timed(const std::string& start, const std::string& body) {
    const Folder folder;
    folder.write("t", header(start) + body);
    EXPECT_EQ(run(folder, {"t", "o", "-d"}).status, 0);
    return folder.read("o");
}

TEST(TimeStamps, AreLocalTimeCountedFromTheFirst) {
    const std::string transmitted = INDENT + "TRANSMIT\n" + INDENT + "Response=1   SAPI=0x00\n" + INDENT +
                                    "TEI=0x00\n" + INDENT + "    0x63  Unnumbered Acknowledgment\n\n";
    // 31 December 2003, 23:59:58.600; 10 ms a tick, 140 ticks. The first record leaves the frames without a time.
    EXPECT_EQ(decode_timed("FE 62 F3 3F 58 02", "2 2 " + time_stamp("F0 FF FF FF", " 41 42") + RECORD + " " +
                                                    time_stamp("7C 0 0 0", " 43") + "54 03 02 01 63"),
              PRI + "ABTRACE START TIME (MM/DD/YYYY) : 12/31/2003, 23:59:58.600\n" + FRAME + "C\n" + INDENT +
                  "Time Stamp : 1/1/2004, 0:0:0.0\n" + transmitted);
    // Thirty days of 10 ms ticks, and the most ticks of the longest duration.
    EXPECT_NE(decode_timed("0 0 0 0 5 0", "2 2 " + time_stamp("0 0 0 0") + time_stamp("0 14 73 0F") + RECORD)
                  .find("Time Stamp : 1/31/1970, 0:0:0.5\n"),
              std::string::npos);
    EXPECT_NE(decode_timed("0 0 0 0 0 0", "2 7FFFFFFF " + time_stamp("0 0 0 0") + time_stamp("FF FF FF FF") + RECORD)
                  .find("Time Stamp : "),
              std::string::npos);
    // A count below the first one's is earlier.
    EXPECT_NE(decode_timed("2 0 0 0 F4 1", "2 2 " + time_stamp("10 0 0 0") + time_stamp("0 0 0 0") + RECORD)
                  .find("Time Stamp : 1/1/1970, 0:0:2.340\n"),
              std::string::npos);
    // A negative resolution counts back, and leaves the milliseconds below 0.
    EXPECT_NE(decode_timed("2 0 0 0 0 0", "2 -1 " + time_stamp("0 0 0 0") + time_stamp("C9 0 0 0") + RECORD)
                  .find("Time Stamp : 1/1/1970, 0:0:1.-5\n"),
              std::string::npos);
    // Milliseconds beyond a second are carried once.
    EXPECT_EQ(decode_timed("0 0 0 0 D0 07", "2 2 " + time_stamp("0 0 0 0")),
              PRI + "TRACE START TIME (MM/DD/YYYY) : 1/1/1970, 0:0:1.1000\n");
}

TEST(BinaryTrace, BecomesHexText) {
    const Folder folder;
    std::string body = bytes_of("2 2 " + RECORD);
    body += std::string("D\x12", 2) + std::string(0x12, '\xAF') + "R";
    folder.write("t", ZERO_HEADER + body);
    run(folder, {"t"});
    std::string text = "02 02 52 03 02 01 63 44 12";
    for (int byte = 0; byte < 18; ++byte) {
        text += " af";
    }
    EXPECT_EQ(folder.read("pritemp.log"), text + "\n 52");
    folder.write("t", ZERO_HEADER.substr(4));
    EXPECT_EQ(run(folder, {"t"}).status, 1);
    EXPECT_EQ(folder.read("pritemp.log"), "");
    EXPECT_EQ(folder.read("t.res"), ABORT);
}

class Files : public testing::Test {
 protected:
    // Runs the program, which must fail with that on the terminal behind the banner, and leave SOURCE alone.
    void expect_failure(const std::vector<std::string>& arguments, const std::string& message) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const Outcome result = run(folder, arguments);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.terminal, BANNER + message);
        EXPECT_EQ(folder.read("t"), trace);
    }

    void SetUp() override { folder.write("t", trace); }

    const Folder folder;
    const std::string trace = ZERO_HEADER + bytes_of("2 2 " + RECORD);
    const std::string no_temporary_file =
        "ERROR:Fail to open temporary file.\nSuggestion:Delete temporary file(\"pritemp.log\") from your system, if it "
        "exist and try again\n";
};

TEST_F(Files, SourceAndReportAreTheSameFile) {
    fs::create_hard_link(folder.path("t"), folder.path("hard"));
    fs::create_symlink("t", folder.path("soft"));
    fs::create_symlink("t", folder.path("t.res"));
    for (const char* name : {"t", "hard", "soft", "./t"}) {
        expect_failure({"t", name, "-d"}, cannot_open_report(name));
        expect_failure({"t", name}, cannot_open_report(name));
    }
    expect_failure({"t"}, cannot_open_report("t.res"));
}

TEST_F(Files, ThatCannotBeOpened) {
    fs::create_directory(folder.path("d"));
    expect_failure({"t", "d", "-d"}, cannot_open_report("d"));
    expect_failure({"t", "no/o", "-d"}, cannot_open_report("no/o"));
    expect_failure({"d", "o"}, "Failed opening file d\n");
    EXPECT_EQ(run(folder, {"none", "o"}).terminal,
              "Failed opening File none \n" + BANNER + "Failed opening file none\n");
    ASSERT_EQ(mkfifo(folder.path("fifo").c_str(), 0666), 0);
    expect_failure({"fifo", "o", "-d"}, "Seek Failed for Source File 1030\n");
    expect_failure({"fifo", "o"}, "Seek Failed 999\n");
    expect_failure({"t", "fifo"}, cannot_open_report("fifo"));
    fs::create_directory(folder.path("pritemp.log"));
    expect_failure({"t", "o"}, no_temporary_file);
}

TEST_F(Files, TemporaryFileIsTraceOrReport) {
    fs::create_symlink("t", folder.path("pritemp.log"));
    expect_failure({"t", "o"}, no_temporary_file);
    fs::remove(folder.path("pritemp.log"));
    expect_failure({"t", "pritemp.log"}, no_temporary_file);
}

TEST_F(Files, ReportCannotBeWrittenWhole) {
    const std::string start = "BINARY TRACE \nISDN Protocol: PRI 4ESS/5ESS\n";
    expect_failure({"t", "/dev/full"}, start + "Failed writing file /dev/full\n");
    folder.write("large", ZERO_HEADER + "\2\2" + frames(4000));
    const Outcome full = run(folder, {"large", "/dev/full"});
    EXPECT_EQ(full.status, 1);
    EXPECT_EQ(full.terminal, BANNER + start + "Failed writing file /dev/full\n");
    // A pipe whose reader leaves.
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0666), 0);
    const int reader = open(folder.path("pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);  // not the program
    const int process = ::start(folder, {"large", "pipe"});
    char byte = 0;
    while (read(reader, &byte, 1) != 1) {
    }
    close(reader);
    const Outcome pipe = finish(folder, process);
    EXPECT_EQ(pipe.status, 1);
    EXPECT_EQ(pipe.terminal, BANNER + start + "Failed writing file pipe\n");
}

// Runs in one folder take turns with pritemp.log.
TEST_F(Files, SeveralBinaryRunsAtOnce) {
    std::vector<int> processes;
    for (unsigned length = 1; length <= 8; ++length) {
        folder.write("t" + std::to_string(length), ZERO_HEADER + "\2\2" + frames(length * 2000UL));
    }
    for (unsigned length = 1; length <= 8; ++length) {
        processes.push_back(start(folder, {"t" + std::to_string(length)}, "terminal" + std::to_string(length)));
    }
    for (unsigned length = 1; length <= 8; ++length) {
        EXPECT_EQ(finish(folder, processes[length - 1]).status, 0);
        EXPECT_EQ(folder.read("t" + std::to_string(length) + ".res").size(),
                  PRI.size() + length * 2000UL * FRAME.size());
    }
}

TEST(Names, OfAnyLength) {
    const Folder folder;
    const std::string name = std::string(200, 'a') + "/../" + std::string(200, 'b');
    fs::create_directory(folder.path(std::string(200, 'a')));
    folder.write(std::string(200, 'b'), ZERO_HEADER + "2 2 " + RECORD);
    EXPECT_EQ(run(folder, {name, "-d"}).status, 0);
    EXPECT_EQ(folder.read(std::string(200, 'b') + ".res"), PRI + FRAME);
}

// Every sample has its report beside it.
TEST(Samples, DecodeToTheirReports) {
    unsigned samples = 0;
    for (const auto& entry : fs::directory_iterator(SAMPLES)) {
        if (entry.path().extension() == ".res") {
            const Folder folder;
            const std::string name = entry.path().stem();
            fs::copy(fs::path(SAMPLES) / name, folder.path(name));
            const bool hex = name.ends_with(".hex");
            run(folder, hex ? std::vector<std::string>{name, "-d"} : std::vector<std::string>{name});
            EXPECT_EQ(folder.read(name + ".res"), contents(entry.path())) << name;
            ++samples;
        }
    }
    EXPECT_GE(samples, 4U);
}

}  // namespace
