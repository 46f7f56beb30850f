// quandrix-import and quandrix-export: each format by hand, from trace to capture and back, and everything that can
// fail.
#include "tests/program.h"

namespace {

// Runs commands with the two programs as IMPORT and EXPORT.
Folder::Outcome run(const Folder& folder, const std::string& commands) {
    return folder.run("IMPORT() { " IMPORT " \"$@\"; }\nEXPORT() { " EXPORT " \"$@\"; }\n" + commands);
}

// Numbers of 32 bits, the low octet first.
std::string words(std::initializer_list<unsigned> numbers) {
    std::string bytes;
    for (const unsigned number : numbers) {
        for (unsigned shift = 0; shift < 32; shift += 8) {
            bytes.push_back(static_cast<char>(number >> shift));
        }
    }
    return bytes;
}

std::string pcap_head(unsigned link_type) { return words({0xA1B2C3D4, 0x40002, 0, 0, 0xFFFF, link_type}); }

// A packet of a pcap file; on the line it was longer by `cut` octets.
std::string packet(unsigned seconds, unsigned microseconds, const std::string& octets, unsigned cut = 0) {
    const std::string bytes = bytes_of(octets);
    const auto size = static_cast<unsigned>(bytes.size());
    return words({seconds, microseconds, size, size + cut}) + bytes;
}

// A frame with its header of link type 177: low octet of the packet type, side and line of the address.
std::string lapd(const std::string& type, const std::string& address, const std::string& frame) {
    return "00 " + type + " 20 fd 00 02 " + address + " 00 00 00 00 00 00 00 30 " + frame;
}
std::string incoming(const std::string& frame, const std::string& address = "00 00") {
    return lapd("00", address, frame);
}
std::string outgoing(const std::string& frame, const std::string& address = "00 00") {
    return lapd("04", address, frame);
}

// Imports a capture, and expects the header of the trace, the text after it, the exit status and the messages.
void expect_import(const std::string& capture, const std::string& options, const std::string& header,
                   const std::string& body, int status, const std::string& messages) {
    const Folder folder;
    folder.write("capture", capture);
    const Folder::Outcome outcome = run(folder, "IMPORT -d " + options + " capture trace");
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.terminal, messages);
    EXPECT_EQ(folder.read("trace"), bytes_of(header + " 00 00 00 00") + body);
    EXPECT_EQ(run(folder, "<capture IMPORT - " + options + " - >binary").status, status);
    EXPECT_EQ(folder.read("binary"), bytes_of(header + " 00 00 00 00 " + body));
}

std::string summary(int frames, int packets, int others, int unusable, const std::string& other_lines = "") {
    return "quandrix-import: " + std::to_string(frames) + " frames from " + std::to_string(packets) +
           " packets; left out: " + std::to_string(others) + " of other channels or layers, " + other_lines +
           std::to_string(unusable) + " not convertible\n";
}

std::string left_out(const std::string& what, const std::string& why) {
    return "quandrix-import: " + what + " is left out: " + why + "\n";
}

std::string clamped(int frames) {
    return "quandrix-import: " + std::to_string(frames) +
           " frames have the nearest time that a trace can hold, not their own\n";
}

std::string merged(const std::string& lines) {
    return "quandrix-import: the frames are of " + lines +
           ", which a primary-rate trace does not tell apart: take one with -l LINE, or give a basic-rate PROTOCOL\n";
}

const std::string NO_LAPD = "no LAPD frame";
const std::string NO_FORM = "not of the form [TIME] R|T [LINE] OCTETS";
const std::string NO_OCTETS = "a frame of no octets";
const std::string TOO_LONG = "a frame of more than 255 octets";
const std::string LONGEST = repeated(" 41", 255);  // octets of a frame

// Headers of traces, and the records before the first frame that has a time.
const std::string AT_100_S = "64 00 00 00 7b 00";  // 123 ms
const std::string AT_0_S = "00 00 00 00 00 00";
const std::string STAMPS = "50 04 00 00 00 00\n50 04 00 00 00 00\n";

TEST(Import, LinuxLapdTurnedToTheUserSide) {
    const std::string records =
        "84 01\n50 00 04 00 00 00 00\n50 00 04 00 00 00 00\n54 01 03 02 83 7f\n50 00 04 01 00 00 00\n"
        "52 01 03 02 83 73\n54 ff 03 02 83 7f\n50 00 04 e7 ff ff ff\n52 02 01 00\n";
    const std::string packets =
        packet(100, 123456, outgoing("02 83 7f", "00 01")) + packet(100, 128000, incoming("02 83 73", "00 01")) +
        packet(100, 132999, incoming("02 83 7f", "01 ff")) + packet(99, 999999, outgoing("00", "80 02"));
    expect_import(pcap_head(177) + packets, "-p bri-net3", AT_100_S, records, 0, summary(4, 4, 0, 0));
}

TEST(Import, LeavesOutWhatCannotBeConverted) {
    const std::string cut_end =
        "from here on nothing can be read: truncated dump file; tried to read 16 header bytes, only got 15";
    expect_import(
        pcap_head(177) + packet(1, 0, lapd("03", "00 00", "00 01")) + packet(1, 0, "00 04 20 fd 00 02 00 00") +
            packet(1, 0, "00 04 20 fd 00 02 00 00 00 00 00 00 00 00 08 00 00 01") + packet(1, 0, incoming("00 01"), 1) +
            packet(1, 0, incoming("")) + packet(1, 0, incoming(LONGEST + " 41")) +
            packet(100, 123000, incoming(LONGEST)) + packet(1, 0, "").substr(1),
        "-p dass2", AT_100_S, "14 01\n52 ff" + LONGEST + "\n", 1,
        left_out("packet 1", NO_LAPD) + left_out("packet 2", NO_LAPD) + left_out("packet 3", NO_LAPD) +
            left_out("packet 4", "cut by the snap length") + left_out("packet 5", NO_OCTETS) +
            left_out("packet 6", TOO_LONG) + left_out("packet 8", cut_end) + summary(1, 8, 0, 7));
}

// Of each kind of trouble ten are named.
TEST(Import, MuchTroubleIsCounted) {
    std::string names;
    for (int line = 1; line <= 10; ++line) {
        names += left_out("line " + std::to_string(line), NO_FORM);
    }
    expect_import(repeated("x\n", 10) + "R\nx\nR 01\nx\nR\n", "-p dass2", AT_0_S, "14 01\n52 01 01\n", 1,
                  names + left_out("line 11", NO_OCTETS) + left_out("line 15", NO_OCTETS) +
                      "quandrix-import: 2 more lines are left out: " + NO_FORM + "\n" + summary(1, 15, 0, 14));
}

// As many microseconds or more as a second has.
TEST(Import, FractionsOfASecondThatAreNone) {
    const std::string wrong =
        "quandrix-import: 2 frames have a wrong fraction of a second in the capture: it counts as 0\n";
    const std::string trace = "14 01\n52 01 41\n52 01 41\n52 01 41\n";
    const std::string frame = incoming("41");
    expect_import(pcap_head(177) + packet(0, 4000000, frame) + packet(0, 1000000, frame) + packet(0, 999999, frame) +
                      packet(0, 4000000, outgoing("")),
                  "-p dass2", AT_0_S, trace, 1, left_out("packet 4", NO_OCTETS) + summary(3, 4, 0, 1) + wrong);
    const std::string rest = " 00 00 00 00 00 00 0a 00 01 41 ";
    expect_import("EyeSDN" + bytes_of("ff fe fd fe fd fe fd" + rest + "ff 0f 42 40" + rest + "ff 0f 42 3f" + rest),
                  "-p dass2", AT_0_S, trace, 1, summary(3, 3, 0, 0) + wrong);
}

// A command of the user side has a C/R bit of 0, a response 1.
TEST(Import, LapdHasItsDirectionFromTheAddress) {
    std::string capture = pcap_head(203);
    std::string trace = "19 01\n";
    for (const char* row :
         {"T 00 01 00 00", "R 02 01 fe ff", "T 00 01 6f", "R 02 01 7f", "T 00 01 43",    "R 02 01 53",
          "T 00 ff 03",    "R 02 ff 13",    "T 00 01 af", "R 02 01 bf", "R 00 01 63",    "T 02 01 73",
          "R 00 01 0f",    "T 02 01 1f",    "R 00 01 87", "T 02 01 97", "R 00 01 01 01", "T 02 01 05 00",
          "T 02 01 09 01", "T 00 01",       "R 02",       "T fd"}) {
        const std::string octets = row + 2;
        capture += packet(0, 0, octets);
        trace += trace.size() == 6 ? STAMPS : "";
        trace += (row[0] == 'T' ? "54 0" : "52 0") + std::to_string((octets.size() + 1) / 3) + " " + octets + "\n";
    }
    expect_import(capture, "-p ni2", AT_0_S, trace, 0, summary(22, 22, 0, 0));
}

TEST(Import, Lines) {
    // The line of what is no frame is not known; that of a frame which cannot be converted is.
    const std::string text = "100.123 T 41\nR [3] 42\nR 43\nR [255]\n";
    const std::string trouble = left_out("line 4", NO_OCTETS);
    expect_import(text, "-p dass2", AT_100_S, "14 01\n54 01 41\n52 01 42\n52 01 43\n", 1,
                  trouble + summary(3, 4, 0, 1) + merged("2 lines (0, 3)"));
    expect_import(text, "-p dass2 -l 0", AT_100_S, "14 01\n54 01 41\n52 01 43\n", 0,
                  summary(2, 4, 0, 0, "2 of other lines, "));
    expect_import(text + "x", "-p 0 -l 255", AT_0_S, "00 01\n", 1,
                  trouble + left_out("line 5", NO_FORM) + summary(0, 5, 0, 2, "3 of other lines, "));
    expect_import("R [4] 01\nT [5] 02\n", "-p 255 -l 5", AT_0_S, "ff 01\n54 05 01 02\n", 0,
                  summary(1, 2, 0, 0, "1 of other lines, "));
    std::string many;
    for (int line = 20; line > 0; --line) {
        many += "R [" + std::to_string(line) + "] 01\n";
    }
    expect_import(many, "-p 20", AT_0_S, "14 01\n" + repeated("52 01 01\n", 20), 1,
                  summary(20, 20, 0, 0) + merged("20 lines (1, 2, 3, 4, 5, 6, 7, 8, 9, 10, ...)"));
}

TEST(Import, Eyesdn) {
    const std::string when = "01 e2 40 00 00 00 00 64 ";  // 100.123456 s
    expect_import(
        "EyeSDN" + bytes_of(" ff " + when + "00 0b 00 05 46 3f 13 fe fc fe fd" +       // DPNSS transmitted
                            " ff " + when + "00 02 00 02 47 2e" +                      // layer 1
                            " ff " + when + "01 01 00 01 41" +                         // a B channel
                            " ff " + when + "00 0c 00 01 41" +                         // another protocol
                            " ff " + when + "00 00 00 fe fc" + repeated(" 41", 254) +  // LAPD received
                            " ff " + when + "00 0a 00 03 41 41" +                      // cut by the next one
                            " ff " + when + "00 0a 00 01 41 42 43" +                   // more than its length
                            " ff " + when + "00 0a 00 01 fe"),
        "-p dpnss-a", AT_100_S, "17 01\n54 05 46 3f 13 fe ff\n52 fe" + repeated(" 41", 254) + "\n52 01 41\n", 1,
        left_out("packet 6", "the record is cut short") + left_out("packet 8", "octets that belong to no record") +
            left_out("packet 9", "the record is cut short") + summary(3, 9, 3, 3));
    // Before 1970.
    expect_import("EyeSDN" + bytes_of("ff 0d bb a0 fe fd fe fd fe fd fe fd fe fd 00 0a 00 01 41"), "-p 24",
                  "ff ff ff ff 84 03", "18 01\n52 01 41\n", 0, summary(1, 1, 0, 0));
}

TEST(Import, Text) {
    expect_import(
        "# comment\n\n100.123 R 02 01 7f\n  100.1279999 T[7]020173 # comment\r\n1970-01-01  00:01:40.138R [255] 00\n"
        "T 0A # as late as the one before\n1969-12-31 23:59:59.9 R 00",
        "-p 132", AT_100_S,
        "84 01\n50 00 04 00 00 00 00\n50 00 04 00 00 00 00\n52 00 03 02 01 7f\n54 07 03 02 01 73\n"
        "50 00 04 03 00 00 00\n52 ff 01 00\n54 00 01 0a\n50 00 04 b3 b1 ff ff\n52 00 01 00\n",
        0, summary(5, 5, 0, 0));
    // The first frames have no time.
    expect_import("R [7] 01\nT" + LONGEST + "\n100.123 R [8] 03\n100.128 R [9] 04", "-p 132", AT_100_S,
                  "84 01\n52 07 01 01\n54 00 ff" + LONGEST +
                      "\n50 00 04 00 00 00 00\n50 00 04 00 00 00 00\n52 08 01 03\n50 00 04 01 00 00 00\n52 09 01 04\n",
                  0, summary(4, 4, 0, 0));
    expect_import("R 01\n100.123 T 02\n99 R 03", "-p dass2", AT_100_S, "14 01\n52 01 01\n54 01 02\n52 01 03\n", 0,
                  summary(3, 3, 0, 0));
    // Further off than tick counts reach.
    expect_import("1970-06-01 00:00:00 R 00\n9999-12-31 23:59:59 R 01\n0 R 02", "-p ni2", "80 12 c7 00 00 00",
                  "19 01\n" + STAMPS + "52 01 00\n50 04 66 66 66 e6\n52 01 01\n50 04 67 66 66 e6\n52 01 02\n", 1,
                  summary(3, 3, 0, 0) + clamped(2));
}

// So many frames before the first time that they are not held until it comes.
TEST(Import, TextWhoseFirstTimeIsLate) {
    const Folder folder;
    const Folder::Outcome outcome = run(folder,
                                        "{ yes R 41 | head -n 400000; echo 1795255200 R 42; } | "
                                        "IMPORT -p ni2 - trace; head -c 15 trace");
    EXPECT_EQ(outcome.terminal, summary(400001, 400001, 0, 0) + clamped(1) + ZERO_HEADER + bytes_of("19 01 52 01 41"));
}

// The seconds of a header are a signed number of 32 bits. If there are time stamps, they go on from there.
TEST(Import, TimesThatAHeaderCannotHold) {
    const std::string first = "00 00 00 80 00 00";
    const std::string last = "ff ff ff 7f e7 03";
    const std::string fits = summary(1, 1, 0, 0);
    expect_import("1901-12-13 20:45:52 R 00", "-p dass2", first, "14 01\n52 01 00\n", 0, fits);
    expect_import("1901-12-13 20:45:51.999 R 00", "-p dass2", first, "14 01\n52 01 00\n", 1, fits + clamped(1));
    expect_import("2147483647.999 R 00", "-p dass2", last, "14 01\n52 01 00\n", 0, fits);
    expect_import("2147483648 R 00", "-p dass2", last, "14 01\n52 01 00\n", 1, fits + clamped(1));
    expect_import("2147483648.5 R 00", "-p ni2", last, "19 01\n50 04 00 00 00 00\n50 04 64 00 00 00\n52 01 00\n", 0,
                  fits);
}

TEST(Import, TextThatIsNoFrame) {
    for (const std::string line :
         {"02 01", "R 2", "X 01", "R 0g", "RR 01", "1.5.5 R 01", "1,5 R 01", "-1 R 01", "99999999999999999999 R 01",
          "2026-13-01 00:00:00 R 01", "2026-02-30 00:00:00 R 01", "2026-02-01 24:00:00 R 01", "2026-02-01 R 01",
          "10000-02-01 00:00:00 R 01", "2026-02-01T00:00:00 R 01", "R [256] 01", "R [] 01", "R [1 01", "1 "}) {
        expect_import("100.123 T 00\n" + line + "\nR 01\n", "-p vn3", AT_100_S,
                      "09 01\n" + STAMPS + "54 01 00\n52 01 01\n", 1,
                      left_out("line 2", NO_FORM) + summary(2, 3, 0, 1));
    }
    expect_import("100.123 T 00\n" + repeated(" ", 4095) + "\nR 01" + repeated(" ", 4093) + "\nR\nT " +
                      repeated("41", 256) + "\n#" + repeated("#", 5000),
                  "-p vn3", AT_100_S, "09 01\n" + STAMPS + "54 01 00\n", 1,
                  left_out("line 3", "longer than 4096 characters") + left_out("line 4", NO_OCTETS) +
                      left_out("line 5", TOO_LONG) + summary(1, 4, 0, 3));
}

// A pcapng file: its head, an interface of link type 177 that has the name of a line, a packet on an interface. Names
// and packets are filled up to whole words.
const std::string PCAPNG_HEAD = words({0x0A0D0D0A, 28, 0x1A2B3C4D, 1, ~0U, ~0U, 28});

std::string interface(unsigned line) {
    const std::string name = "line " + std::to_string(line);
    const auto size = static_cast<unsigned>(name.size());
    return words({1, 36, 177, 0, 2 + (size << 16U)}) + name + std::string(8 - size, 0) + words({0, 36});
}

std::string packet_on(unsigned interface, const std::string& octets, std::uint64_t microseconds = 100123000) {
    std::string bytes = bytes_of(octets);
    const auto size = static_cast<unsigned>(bytes.size());
    bytes += std::string(-size % 4, 0);
    const auto block = static_cast<unsigned>(bytes.size()) + 32;
    return words({6, block, interface, static_cast<unsigned>(microseconds >> 32U), static_cast<unsigned>(microseconds),
                  size, size}) +
           bytes + words({block});
}

// Exports a hex trace, also as a binary one, and expects the capture, the exit status and the messages.
void expect_export(const std::string& body, int status, const std::string& capture, const std::string& messages,
                   const std::string& header = AT_100_S, const std::string& options = "") {
    const Folder folder;
    folder.write("hex", bytes_of(header + " 0 0 0 0") + body);
    folder.write("binary", bytes_of(header + " 0 0 0 0 " + body));
    for (const std::string command : {"EXPORT -d hex capture", "EXPORT binary capture", "EXPORT hex -d - >capture",
                                      "cat binary | EXPORT - capture"}) {
        const Folder::Outcome outcome = run(folder, command + options);
        EXPECT_EQ(outcome.status, status) << command;
        EXPECT_EQ(outcome.terminal, messages) << command;
        EXPECT_EQ(folder.read("capture"), capture) << command;
    }
}

std::string exported(int frames, int debug_records, int empty, const std::string& other_lines = "") {
    return "quandrix-export: " + std::to_string(frames) + " frames; left out: " + other_lines +
           std::to_string(debug_records) + " debug records, " + std::to_string(empty) + " frames of no octets\n";
}

TEST(Export, PcapngOfLinuxLapd) {
    // Ticks of 10 ms from the first time stamp; the third one is before it.
    expect_export(
        "84 2 52 1 3 0 1 73 50 0 4 10 0 0 0 54 2 1 ff 44 0 4 1 2 3 4 50 0 6 67 0 0 0 41 42 54 3 0 52 4 1 7f "
        "50 0 3 1 2 3 50 0 4 c 0 0 0 54 5 1 41",
        0,
        PCAPNG_HEAD + interface(1) + packet_on(0, incoming("00 01 73", "00 01")) + interface(2) +
            packet_on(1, outgoing("ff", "00 02")) + interface(4) + packet_on(2, incoming("7f", "00 04"), 100993000) +
            interface(5) + packet_on(3, outgoing("41", "00 05"), 100083000),
        exported(4, 1, 1));
    // Beyond 32 bits of microseconds, at 5000 s.
    expect_export("ff 2 52 0 ff" + LONGEST, 0, PCAPNG_HEAD + interface(0) + packet_on(0, incoming(LONGEST), 5000000000),
                  exported(1, 0, 0), "88 13 0 0 0 0");
}

TEST(Export, Lines) {
    const std::string trace = "80 1 52 7 1 41 52 c8 1 42 54 7 1 43 54 c8 0 44 7 0 52 0 1 45";
    expect_export(trace, 0,
                  PCAPNG_HEAD + interface(7) + packet_on(0, incoming("41", "00 07")) + interface(200) +
                      packet_on(1, incoming("42", "00 c8")) + packet_on(0, outgoing("43", "00 07")) + interface(0) +
                      packet_on(2, incoming("45")),
                  exported(4, 1, 1));
    expect_export(
        trace, 0,
        PCAPNG_HEAD + interface(7) + packet_on(0, incoming("41", "00 07")) + packet_on(0, outgoing("43", "00 07")),
        exported(2, 1, 0, "3 of other lines, "), AT_100_S, " -l 7");
    // Without a frame. The lines of a primary rate are 0.
    expect_export("2 1 44 0 52 1 41", 0, PCAPNG_HEAD + interface(0), exported(0, 1, 0, "1 of other lines, "), AT_100_S,
                  " -l 7");
}

// Those before 1970, and those whose seconds are no number of 32 bits, are cut to the nearest one.
TEST(Export, TimesFarOff) {
    const std::string head = PCAPNG_HEAD + interface(0);
    expect_export("2 2 52 1 41", 0, head + packet_on(0, incoming("41"), 0), exported(1, 0, 0), "ff ff ff ff 84 3");
    // 2147483647.123 s and 2738041649.925 s: 4885525297.048 s.
    expect_export("2 ff 50 4 0 0 0 0 50 4 ff ff ff 7f 52 1 41", 0,
                  head + packet_on(0, incoming("41"), 4294967295999999), exported(1, 0, 0), "ff ff ff 7f 7b 0");
}

TEST(Export, EyesdnOfDass2AndDpnss) {
    const std::string when = " ff 01 e0 78 00 00 00 00 64 00 ";
    for (const char* code : {"14", "17", "18"}) {
        expect_export(
            std::string(code) + " 2 54 5 46 3f 13 fe ff 44 0 52 fe" + repeated(" ff", 254) + " 50 4 0 0 0 0 52 1 fd", 0,
            "EyeSDN" + bytes_of(when + "0b 00 05 46 3f 13 fe fc fe fd " + when + "0a 00 fe fc" +
                                repeated(" fe fd", 254) + when + "0a 00 01 fd"),
            exported(3, 1, 0));
    }
}

TEST(Export, DamageIsListedInTheWordsOfTheReport) {
    const std::string frame = packet_on(0, incoming("41"));
    const std::string head = PCAPNG_HEAD + interface(0);
    expect_export(
        "2 2 1 2 52 1 41 54 3 3 52 1 41", 0, head + frame + frame,
        "\nCORRUPT DATA ENCOUNTERED:\n01 02 \n\nCORRUPT DATA ENCOUNTERED: 54\n\nCORRUPT DATA ENCOUNTERED:\n03 03 "
        "\n" +
            exported(2, 0, 0));
    expect_export("2 2 52 1 41 52 4 41", 1, head + frame, "\n    ERROR ABORT \n" + exported(1, 0, 0));
}

TEST(Captures, WayThereAndBack) {
    // The second capture has the same frames, directions, lines and times as the first. The report differs from the
    // first one only in time stamps, debug records and damage.
    const Folder folder;
    const Folder::Outcome outcome = run(folder, R"(
lines() { grep -vE '^ *$|Time Stamp :|TRACE START TIME|DEBUG|line 1 in sync|clock sync|CORRUPT DATA|ERROR ABORT|^([0-9A-F]{2} )+$' | sed 's/^ *T/T/'; }
for sample in )" SAMPLES R"(/*.hex )" SAMPLES R"(/*.bin; do
    case $sample in *.hex) kind=-d code=$(tail -c +11 $sample | head -c 2);;
                    *) kind= code=$(tail -c +11 $sample | head -c 1 | od -A n -t x1);; esac
    EXPORT $kind $sample first 2>messages || grep -q 'ERROR ABORT' messages || exit
    lines <$sample.res >expected
    for kind in -d ""; do
        IMPORT $kind -p $((0x${code# })) first trace 2>messages && EXPORT $kind trace second 2>messages || exit
        cmp first second || exit
        QUANDRIX trace report $kind >out; lines <report | diff expected - || { echo $sample; exit 1; }
    done
done)");
    EXPECT_EQ(outcome.status, 0) << outcome.terminal;
}

// A trace that comes from a pipe: the permissions of the pipe do not count.
TEST(Captures, PermissionsOfNewFiles) {
    const Folder folder;
    folder.write("text", "R 02 01 7f\n");
    EXPECT_EQ(run(folder,
                  "umask 022; chmod 640 text; IMPORT -p 17 text a && cat text | IMPORT -p 17 - b && EXPORT b c\n"
                  "stat -c %a a b c")
                  .terminal.substr(2 * summary(1, 1, 0, 0).size()),
              exported(1, 0, 0) + "640\n644\n644\n");
}

// Each command must fail with that message, and make no file "o".
void expect_failures(const Folder& folder, std::initializer_list<std::pair<std::string, std::string>> failures) {
    for (const auto& [command, message] : failures) {
        const Folder::Outcome outcome = run(folder, "(" + command + "); s=$?; [ ! -e o ] || s=5; exit $s");
        EXPECT_EQ(outcome.status, 1) << command;
        EXPECT_EQ(outcome.terminal, message) << command;
    }
}

TEST(Captures, ThatCannotBeRead) {
    const Folder folder;
    folder.write("ethernet", pcap_head(1));
    folder.write("junk", bytes_of("0 1 2 3 4 5 6 7"));
    folder.write("empty", "");
    for (const auto& [program, octets] : {std::pair<std::string, const char*>("zcat", "1f 8b 8 0 0 0 0 0"),
                                          {"xzcat", "fd 37 7a 58 5a 0"},
                                          {"bzcat", "42 5a 68 39 31"},
                                          {"zstdcat", "28 b5 2f fd 24 0"}}) {
        folder.write("c", bytes_of(octets));
        expect_failures(folder, {{"IMPORT -p 17 c o", "quandrix-import: c is compressed; use: " + program +
                                                          " c | quandrix-import ... -\n"}});
    }
    expect_failures(
        folder,
        {
            {"IMPORT -p 17 ethernet o", "quandrix-import: ethernet holds no ISDN frames: its link type is EN10MB\n"},
            {"IMPORT -p 17 junk o", "quandrix-import: junk is no capture: unknown file format\n"},
            {"IMPORT -p 17 empty o", "quandrix-import: empty is no capture: it is empty\n"},
            {"IMPORT -p 17 none o", "quandrix-import: cannot open none: No such file or directory\n"},
            {"IMPORT -p 17 . o", "quandrix-import: cannot read .: Is a directory\n"},
            {"EXPORT none o", "quandrix-export: cannot open none: No such file or directory\n"},
            {"EXPORT . o", "quandrix-export: cannot read .: Is a directory\n"},
            {"EXPORT empty o", "\n    ERROR ABORT \n" + exported(0, 0, 0)},
        });
}

TEST(Captures, CommandLineThatIsWrong) {
    const std::string import_usage = "usage: quandrix-import [-d] [-l LINE] -p PROTOCOL CAPTURE TRACE\n";
    const std::string export_usage = "usage: quandrix-export [-d] [-l LINE] TRACE CAPTURE\n";
    for (const std::string row :
         {"IMPORT t o: no -p PROTOCOL", "IMPORT -p: option -p lacks its value", "IMPORT -p 1: no CAPTURE",
          "IMPORT t o -p net6: no PROTOCOL (--help lists them): net6", "IMPORT -p 1 t: no TRACE",
          "IMPORT -p 256 t o: no PROTOCOL (--help lists them): 256", "EXPORT: no TRACE",
          "IMPORT -p 1x t o: no PROTOCOL (--help lists them): 1x", "IMPORT -p 1 t o x: one word too many: x",
          "IMPORT -p '' t o: no PROTOCOL (--help lists them): ", "EXPORT -- t o -d: one word too many: -d",
          "IMPORT -p 1 -l 256 t o: no LINE of 0 to 255: 256", "EXPORT t o -l -1: no LINE of 0 to 255: -1",
          "EXPORT t o -dx: unknown option -x", "EXPORT --hex t o: unknown option --hex",
          "EXPORT --help=all t o: unknown option --help=all", "EXPORT --version=2 t o: unknown option --version=2"}) {
        const std::string command = row.substr(0, row.find(": "));
        const bool is_import = command[0] == 'I';
        const std::string program = is_import ? "quandrix-import: " : "quandrix-export: ";
        expect_failures(Folder(), {{command, program + row.substr(command.size() + 2) + "\n" + program +
                                                 (is_import ? import_usage : export_usage)}});
    }
}

TEST(Captures, HelpAndVersion) {
    const Folder folder;
    for (const std::string program : {"IMPORT", "EXPORT"}) {
        const std::string name = program == "IMPORT" ? "quandrix-import" : "quandrix-export";
        for (const char* option : {" -h", " --help", " t --help -x"}) {
            const Folder::Outcome outcome = run(folder, program + option + " 2>&-; exit $?");
            EXPECT_EQ(outcome.status, 0);
            EXPECT_TRUE(outcome.terminal.starts_with("usage: " + name + " [-d] ")) << outcome.terminal;
        }
        EXPECT_EQ(run(folder, program + " --version 2>&-").terminal, name + " " VERSION "\n");
        EXPECT_EQ(run(folder, program + " --help >/dev/full").status, 1);
    }
    // Every name in the help is accepted.
    EXPECT_EQ(run(folder,
                  "echo R 01 >text; for name in $(IMPORT -h | awk '/  -d /{ exit } names; /one of$/{ names = 1 }'); do "
                  "IMPORT -d text -p $name $name 2>said || exit; tail -c +11 $name | head -n 1; done")
                  .terminal,
              "02 01\n03 01\n07 01\n09 01\n0b 01\n0c 01\n10 01\n11 01\n14 01\n17 01\n18 01\n19 01\n"
              "81 01\n82 01\n83 01\n84 01\n85 01\n86 01\n");
}

TEST(Captures, ThatCannotBeWritten) {
    const Folder folder;
    const std::string hex_trace = ZERO_HEADER + "2 2 " + RECORD;
    folder.write("t", frames(1));
    folder.write("h", hex_trace);
    folder.write("text", "R 01\n");
    const std::string refused_output = "cannot write -: this run reads that file, or standard error goes to it too\n";
    const std::string refused = ": this run reads it, or has it as standard output or error\n";
    expect_failures(folder,
                    {
                        {"EXPORT t ./t", "quandrix-export: cannot write ./t" + refused},
                        {"ln text link; IMPORT -p 17 text link", "quandrix-import: cannot write link" + refused},
                        {"<text IMPORT -p 17 - text", "quandrix-import: cannot write text" + refused},
                        {"IMPORT -p 17 text - >>text", "quandrix-import: " + refused_output},
                        {"EXPORT t - 1<>t", "quandrix-export: " + refused_output},
                        {"sh -c 'ulimit -n 4; exec " EXPORT " -d h -' >>h 3<&-", "quandrix-export: " + refused_output},
                        {"IMPORT -p 17 text - >u 2>&1; s=$?; cat u; exit $s", "quandrix-import: " + refused_output},
                        {"EXPORT t - >>u 2>>u; s=$?; tail -n 1 u; exit $s", "quandrix-export: " + refused_output},
                        {"EXPORT t no/c", "quandrix-export: cannot write no/c: No such file or directory\n"},
                        {"EXPORT t /dev/full", "quandrix-export: could not write all of /dev/full\n"},
                        {"IMPORT -p 17 text /dev/full", "quandrix-import: could not write all of /dev/full\n"},
                    });
    EXPECT_EQ(folder.read("t"), frames(1));
    EXPECT_EQ(folder.read("h"), hex_trace);
    EXPECT_EQ(folder.read("text"), "R 01\n");
}

// A few or many bits changed at random: the programs end with a message, and no sanitizer complains.
TEST(Captures, DamagedOnesEndWithStatus0Or1) {
    const Folder folder;
    folder.write("lapd", pcap_head(203) + packet(1, 2, "00 01 00 00 08 01 01 05") + packet(3, 4, "02 01 01 02"));
    folder.write("text", "1.5 T [1] 00 01 7f\n2026-11-22 10:00:00.120 R 00 01 73\n");
    const Folder::Outcome outcome = run(folder, R"(
EXPORT -d )" SAMPLES R"(/dpnss-call.hex eyesdn 2>said; EXPORT -d )" SAMPLES R"(/pri-call.hex pcap 2>said
for seed in $(seq 25); do for capture in lapd text eyesdn pcap; do
    zzuf -s $seed -r 0.0002:0.05 <$capture >damaged || exit
    IMPORT -p 17 damaged trace 2>said; [ $? -le 1 ] || { cat said; echo $capture, seed $seed; exit 1; }
    zzuf -s $seed -r 0.0002:0.05 <)" SAMPLES R"(/pri-call.bin >damaged || exit
    EXPORT damaged again 2>said; [ $? -le 1 ] || { cat said; echo trace, seed $seed; exit 1; }
done; done)");
    EXPECT_EQ(outcome.status, 0) << outcome.terminal;
}

}  // namespace
