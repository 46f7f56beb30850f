// quandrix-import and quandrix-export: each format by hand, the way there and back, and all that can be wrong.
#include "tests/program.h"

namespace {

// Runs commands with the two programs as IMPORT and EXPORT.
Folder::Outcome run(const Folder& folder, const std::string& commands) {
    return folder.run("IMPORT() { " IMPORT " \"$@\"; }\nEXPORT() { " EXPORT " \"$@\"; }\n" + commands);
}

std::string little_endian(unsigned number) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<char>(number >> shift));
    }
    return bytes;
}

std::string pcap_head(unsigned link_type) {
    return bytes_of("d4 c3 b2 a1 02 00 04 00 00 00 00 00 00 00 00 00 ff ff 00 00") + little_endian(link_type);
}

// A packet of a pcap file; longer on the line than in the file by `cut` octets.
std::string packet(unsigned seconds, unsigned microseconds, const std::string& octets, unsigned cut = 0) {
    const std::string bytes = bytes_of(octets);
    const auto size = static_cast<unsigned>(bytes.size());
    return little_endian(seconds) + little_endian(microseconds) + little_endian(size) + little_endian(size + cut) +
           bytes;
}

// Header of link type 177: low octet of the packet type, side and line of the address, frame.
std::string lapd(const std::string& type, const std::string& address, const std::string& frame) {
    return "00 " + type + " 20 fd 00 02 " + address + " 00 00 00 00 00 00 00 30 " + frame;
}

std::string repeated(const std::string& text, unsigned count) {
    std::string result;
    for (; count > 0; --count) {
        result += text;
    }
    return result;
}

// Imports a capture, and expects the trace's header, its text behind that, and what is said.
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

std::string summary(int frames, int packets, int others, int unusable) {
    return "quandrix-import: " + std::to_string(frames) + " frames from " + std::to_string(packets) +
           " packets; left out: " + std::to_string(others) + " of other channels or layers, " +
           std::to_string(unusable) + " not convertible\n";
}

std::string left_out(const std::string& what, const std::string& why) {
    return "quandrix-import: " + what + " is left out: " + why + "\n";
}

const std::string AT_100_S = "64 00 00 00 7b 00";  // 123 ms

TEST(Import, LinuxLapdTurnedToTheUserSide) {
    const std::string records =
        "84 01\n50 00 04 00 00 00 00\n50 00 04 00 00 00 00\n54 01 03 02 83 7f\n50 00 04 01 00 00 00\n"
        "52 01 03 02 83 73\n54 ff 03 02 83 7f\n50 00 04 e7 ff ff ff\n52 02 01 00\n";
    const std::string packets =
        packet(100, 123456, lapd("04", "00 01", "02 83 7f")) + packet(100, 128000, lapd("00", "00 01", "02 83 73")) +
        packet(100, 132999, lapd("00", "01 ff", "02 83 7f")) + packet(99, 999999, lapd("04", "80 02", "00"));
    expect_import(pcap_head(177) + packets, "-p bri-net3", AT_100_S, records, 0, summary(4, 4, 0, 0));
    // On primary rate there is no line byte.
    expect_import(pcap_head(177) + packet(100, 123000, lapd("04", "00 01", "02 83 7f")), "-p 17", AT_100_S,
                  "11 01\n50 04 00 00 00 00\n50 04 00 00 00 00\n54 03 02 83 7f\n", 0, summary(1, 1, 0, 0));
    expect_import(pcap_head(177), "-p 0", "00 00 00 00 00 00", "00 01\n", 0, summary(0, 0, 0, 0));
}

TEST(Import, LeavesOutWhatCannotBeConverted) {
    const std::string longest = repeated(" 41", 255);
    expect_import(
        pcap_head(177) + packet(1, 0, lapd("03", "00 00", "00 01")) + packet(1, 0, "00 04 20 fd 00 02 00 00") +
            packet(1, 0, "00 04 20 fd 00 02 00 00 00 00 00 00 00 00 08 00 00 01") +
            packet(1, 0, lapd("00", "00 00", "00 01"), 1) + packet(1, 0, lapd("00", "00 00", "")) +
            packet(1, 0, lapd("00", "00 00", longest + " 41")) + packet(100, 123000, lapd("00", "00 00", longest)) +
            packet(1, 0, "").substr(1),
        "-p dass2", AT_100_S, "14 01\n52 ff" + longest + "\n", 1,
        left_out("packet 1", "no LAPD frame") + left_out("packet 2", "no LAPD frame") +
            left_out("packet 3", "no LAPD frame") + left_out("packet 4", "cut by the snap length") +
            left_out("packet 5", "a frame of no octets") + left_out("packet 6", "a frame of more than 255 octets") +
            left_out(
                "packet 8",
                "from here on nothing can be read: truncated dump file; tried to read 16 header bytes, only got 15") +
            summary(1, 8, 0, 7));
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
        trace += trace.size() == 6 ? "50 04 00 00 00 00\n50 04 00 00 00 00\n" : "";
        trace += (row[0] == 'T' ? "54 0" : "52 0") + std::to_string((octets.size() + 1) / 3) + " " + octets + "\n";
    }
    expect_import(capture, "-p ni2", "00 00 00 00 00 00", trace, 0, summary(22, 22, 0, 0));
}

TEST(Import, Pcapng) {
    // Section, interface of link type 177 with times in milliseconds, one packet of 19 octets.
    const std::string capture = bytes_of(
        "0a 0d 0d 0a 1c 00 00 00 4d 3c 2b 1a 01 00 00 00 ff ff ff ff ff ff ff ff 1c 00 00 00 "
        "01 00 00 00 20 00 00 00 b1 00 00 00 00 00 00 00 09 00 01 00 03 00 00 00 00 00 00 00 20 00 00 00 "
        "06 00 00 00 34 00 00 00 00 00 00 00 00 00 00 00 1b 87 01 00 13 00 00 00 13 00 00 00 " +
        lapd("04", "00 00", "00 01 7f") + " 00 34 00 00 00");
    expect_import(capture, "-p net5", AT_100_S, "11 01\n50 04 00 00 00 00\n50 04 00 00 00 00\n54 03 00 01 7f\n", 0,
                  summary(1, 1, 0, 0));
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
    // Without a time; times that begin too late are far from the trace's start.
    expect_import("R 01\nT 02", "-p ni2", "00 00 00 00 00 00", "19 01\n52 01 01\n54 01 02\n", 0, summary(2, 2, 0, 0));
    expect_import(
        "R 01\n19500000 T 02", "-p ni2", "00 00 00 00 00 00",
        "19 01\n52 01 01\n50 04 00 00 00 00\n50 04 66 66 66 e6\n54 01 02\n", 1,
        summary(2, 2, 0, 0) + "quandrix-import: 1 frames have the nearest time that a trace can hold, not their own\n");
    // Before 1970; the furthest that tick counts reach.
    expect_import("1969-12-31 23:59:59.9 R 00", "-p ni2", "ff ff ff ff 84 03",
                  "19 01\n50 04 00 00 00 00\n50 04 00 00 00 00\n52 01 00\n", 0, summary(1, 1, 0, 0));
    expect_import(
        "1970-06-01 00:00:00 R 00\n9999-12-31 23:59:59 R 01\n0 R 02", "-p ni2", "80 12 c7 00 00 00",
        "19 01\n50 04 00 00 00 00\n50 04 00 00 00 00\n52 01 00\n50 04 66 66 66 e6\n52 01 01\n"
        "50 04 67 66 66 e6\n52 01 02\n",
        1,
        summary(3, 3, 0, 0) + "quandrix-import: 2 frames have the nearest time that a trace can hold, not their own\n");
}

// Its seconds are a signed number of 32 bits. Where there are time stamps, they go on from there.
TEST(Import, TimesThatAHeaderCannotHold) {
    const std::string first = "00 00 00 80 00 00";
    const std::string last = "ff ff ff 7f e7 03";
    const std::string fits = summary(1, 1, 0, 0);
    const std::string clamped =
        fits + "quandrix-import: 1 frames have the nearest time that a trace can hold, not their own\n";
    expect_import("1901-12-13 20:45:52 R 00", "-p dass2", first, "14 01\n52 01 00\n", 0, fits);
    expect_import("1901-12-13 20:45:51.999 R 00", "-p dass2", first, "14 01\n52 01 00\n", 1, clamped);
    expect_import("2147483647.999 R 00", "-p dass2", last, "14 01\n52 01 00\n", 0, fits);
    expect_import("2147483648 R 00", "-p dass2", last, "14 01\n52 01 00\n", 1, clamped);
    expect_import("2147483648.5 R 00", "-p ni2", last, "19 01\n50 04 00 00 00 00\n50 04 64 00 00 00\n52 01 00\n", 0,
                  fits);
}

TEST(Import, TextThatIsNoFrame) {
    for (const std::string line :
         {"02 01", "R 2", "X 01", "R 0g", "RR 01", "1.5.5 R 01", "1,5 R 01", "-1 R 01", "99999999999999999999 R 01",
          "2026-13-01 00:00:00 R 01", "2026-02-30 00:00:00 R 01", "2026-02-01 24:00:00 R 01", "2026-02-01 R 01",
          "10000-02-01 00:00:00 R 01", "2026-02-01T00:00:00 R 01", "R [256] 01", "R [] 01", "R [1 01", "1 "}) {
        expect_import("100.123 T 00\n" + line + "\nR 01\n", "-p vn3", AT_100_S,
                      "09 01\n50 04 00 00 00 00\n50 04 00 00 00 00\n54 01 00\n52 01 01\n", 1,
                      left_out("line 2", "not of the form [TIME] R|T [LINE] OCTETS") + summary(2, 3, 0, 1));
    }
    expect_import("100.123 T 00\n" + repeated(" ", 4095) + "\nR 01" + repeated(" ", 4093) + "\nR\nT " +
                      repeated("41", 256) + "\n#" + repeated("#", 5000),
                  "-p vn3", AT_100_S, "09 01\n50 04 00 00 00 00\n50 04 00 00 00 00\n54 01 00\n", 1,
                  left_out("line 3", "longer than 4096 characters") + left_out("line 4", "a frame of no octets") +
                      left_out("line 5", "a frame of more than 255 octets") + summary(1, 4, 0, 3));
}

// Exports a hex trace, also as a binary one, and expects the capture and what is said.
void expect_export(const std::string& body, int status, const std::string& capture, const std::string& messages,
                   const std::string& header = AT_100_S) {
    const Folder folder;
    folder.write("hex", bytes_of(header + " 0 0 0 0") + body);
    folder.write("binary", bytes_of(header + " 0 0 0 0 " + body));
    for (const char* command : {"EXPORT -d hex capture", "EXPORT binary capture", "EXPORT hex -d - >capture",
                                "cat binary | EXPORT - capture"}) {
        const Folder::Outcome outcome = run(folder, command);
        EXPECT_EQ(outcome.status, status) << command;
        EXPECT_EQ(outcome.terminal, messages) << command;
        EXPECT_EQ(folder.read("capture"), capture) << command;
    }
}

std::string exported(int frames, int debug_records, int empty) {
    return "quandrix-export: " + std::to_string(frames) + " frames; left out: " + std::to_string(debug_records) +
           " debug records, " + std::to_string(empty) + " frames of no octets\n";
}

TEST(Export, PcapOfLinuxLapd) {
    // Ticks of 10 ms from the first time stamp; the third one is before it.
    expect_export(
        "84 2 52 1 3 0 1 73 50 0 4 10 0 0 0 54 2 1 ff 44 0 4 1 2 3 4 50 0 6 67 0 0 0 41 42 54 3 0 52 4 1 7f 50 0 3 1 2 "
        "3 "
        "50 0 4 c 0 0 0 54 5 1 41",
        0,
        pcap_head(177) + packet(100, 123000, lapd("00", "00 01", "00 01 73")) +
            packet(100, 123000, lapd("04", "00 02", "ff")) + packet(100, 993000, lapd("00", "00 04", "7f")) +
            packet(100, 83000, lapd("04", "00 05", "41")),
        exported(4, 1, 1));
    const std::string longest = repeated(" 41", 255);
    expect_export("ff 2 52 0 ff" + longest, 0, pcap_head(177) + packet(100, 123000, lapd("00", "00 00", longest)),
                  exported(1, 0, 0));
}

// Before 1970; 5 ms before the first second that 32 bits can say; behind the last one, of which 48 ms are left.
TEST(Export, TimesFarOff) {
    const std::string frame = lapd("00", "00 00", "41");
    expect_export("2 2 52 1 41", 0, pcap_head(177) + packet(0xFFFFFFFF, 900000, frame), exported(1, 0, 0),
                  "ff ff ff ff 84 3");
    expect_export("2 1 50 4 1 0 0 0 50 4 0 0 0 0 52 1 41", 0, pcap_head(177) + packet(0x80000000, 995000, frame),
                  exported(1, 0, 0), "0 0 0 80 0 0");
    expect_export("2 ff 50 4 0 0 0 0 50 4 ff ff ff 7f 52 1 41", 0, pcap_head(177) + packet(0xFFFFFFFF, 48000, frame),
                  exported(1, 0, 0), "ff ff ff 7f 7b 0");
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
    const std::string frame = packet(100, 123000, lapd("00", "00 00", "41"));
    expect_export(
        "2 2 1 2 52 1 41 54 3 3 52 1 41", 0, pcap_head(177) + frame + frame,
        "\nCORRUPT DATA ENCOUNTERED:\n01 02 \n\nCORRUPT DATA ENCOUNTERED: 54\n\nCORRUPT DATA ENCOUNTERED:\n03 03 "
        "\n" +
            exported(2, 0, 0));
    expect_export("2 2 52 1 41 52 4 41", 1, pcap_head(177) + frame, "\n    ERROR ABORT \n" + exported(1, 0, 0));
}

TEST(Captures, WayThereAndBack) {
    // The second capture has the same frames, directions, lines and times as the first, and the report differs from the
    // first one in stamps, debug and damage alone.
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

// Where a pipe's own permissions say nothing.
TEST(Captures, PermissionsOfNewFiles) {
    const Folder folder;
    folder.write("text", "R 02 01 7f\n");
    EXPECT_EQ(run(folder,
                  "umask 022; chmod 640 text; IMPORT -p 17 text a && cat text | IMPORT -p 17 - b && EXPORT b c\n"
                  "stat -c %a a b c")
                  .terminal.substr(2 * summary(1, 1, 0, 0).size()),
              "quandrix-export: 1 frames; left out: 0 debug records, 0 frames of no octets\n640\n644\n644\n");
}

TEST(Captures, ThatCannotBeRead) {
    const Folder folder;
    folder.write("ethernet", pcap_head(1));
    folder.write("unknown", pcap_head(146));
    folder.write("junk", bytes_of("0 1 2 3 4 5 6 7"));
    folder.write("empty", "");
    folder.write("t", frames(1));
    const std::string usage = "quandrix-import: usage: quandrix-import [-d] -p PROTOCOL CAPTURE TRACE\n";
    const std::pair<const char*, std::string> failures[] = {
        {"IMPORT -p 17 ethernet o", "quandrix-import: ethernet holds no ISDN frames: its link type is EN10MB\n"},
        {"IMPORT -p 17 junk o", "quandrix-import: junk is no capture: unknown file format\n"},
        {"IMPORT -p 17 empty o", "quandrix-import: empty is no capture: it is empty\n"},
        {"IMPORT -p 17 none o", "quandrix-import: cannot open none: No such file or directory\n"},
        {"IMPORT -p 17 . o", "quandrix-import: cannot read .: Is a directory\n"},
        {"EXPORT none o", "quandrix-export: cannot open none: No such file or directory\n"},
        {"EXPORT . o", "quandrix-export: cannot read .: Is a directory\n"},
        {"EXPORT", "quandrix-export: usage: quandrix-export [-d] TRACE CAPTURE\n"},
        {"EXPORT -x t o", "quandrix-export: usage: quandrix-export [-d] TRACE CAPTURE\n"},
        {"EXPORT empty o", "\n    ERROR ABORT \n" + exported(0, 0, 0)},
    };
    for (const auto& [command, message] : failures) {
        const Folder::Outcome outcome = run(folder, std::string(command) + "; s=$?; [ ! -e o ] || s=5; exit $s");
        EXPECT_EQ(outcome.status, 1) << command;
        EXPECT_EQ(outcome.terminal, message) << command;
    }
    for (const char* arguments :
         {"", "t o", "-p", "-p net6 t o", "-p 256 t o", "-p -1 t o", "-p 1x t o", "-p 1", "-p 1 t o x"}) {
        EXPECT_TRUE(run(folder, std::string("IMPORT ") + arguments).terminal.starts_with(usage)) << arguments;
    }
    // Every name in the usage text is one that is taken.
    EXPECT_EQ(run(folder,
                  "echo R 01 >text; for name in $(IMPORT 2>&1 | sed -n 's/.*one of//p'); do "
                  "IMPORT -d -p $name text $name 2>said || exit; tail -c +11 $name | head -n 1; done")
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
    const std::string refused = ": this run reads it, or has it as standard output or error\n";
    const std::pair<const char*, std::string> failures[] = {
        {"EXPORT t ./t", "quandrix-export: cannot write ./t" + refused},
        {"ln text link; IMPORT -p 17 text link", "quandrix-import: cannot write link" + refused},
        {"<text IMPORT -p 17 - text", "quandrix-import: cannot write text" + refused},
        {"IMPORT -p 17 text - >>text", "quandrix-import: cannot write -" + refused},
        {"EXPORT t - 1<>t", "quandrix-export: cannot write -" + refused},
        {"sh -c 'ulimit -n 4; exec " EXPORT " -d h -' >>h 3<&-", "quandrix-export: cannot write -" + refused},
        {"EXPORT t no/c", "quandrix-export: cannot write no/c: No such file or directory\n"},
        {"IMPORT -p 17 text no/t", "quandrix-import: cannot write no/t: No such file or directory\n"},
        {"EXPORT t /dev/full", "quandrix-export: could not write all of /dev/full\n"},
        {"IMPORT -p 17 text /dev/full", "quandrix-import: could not write all of /dev/full\n"},
    };
    for (const auto& [command, message] : failures) {
        const Folder::Outcome outcome = run(folder, command);
        EXPECT_EQ(outcome.status, 1) << command;
        EXPECT_EQ(outcome.terminal, message) << command;
    }
    EXPECT_EQ(folder.read("t"), frames(1));
    EXPECT_EQ(folder.read("h"), hex_trace);
    EXPECT_EQ(folder.read("text"), "R 01\n");
}

// Few and many bits changed by chance: the programs end and say why, and no sanitizer complains.
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
