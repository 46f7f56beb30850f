// quandrix-import: the frames of a capture (pcap, pcapng, EyeSDN) or of a text as a trace.

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "captures/capture_reader.h"
#include "captures/eyesdn.h"
#include "captures/eyesdn_reader.h"
#include "captures/pcap_reader.h"
#include "captures/text_reader.h"
#include "captures/trace_writer.h"
#include "io/diagnostics.h"
#include "io/file_access.h"
#include "io/input_stream.h"
#include "io/operands.h"
#include "report/state.h"

namespace {

struct ProtocolName {
    std::string_view name;
    std::uint8_t code;
};

constexpr std::uint8_t PRI_5ESS = 3;  // the decoder's PRI_4ESS stands for both

constexpr ProtocolName PROTOCOLS[] = {
    {"4ess", PRI_4ESS},     {"5ess", PRI_5ESS},         {"dms100", PRI_DMS100},   {"vn3", PRI_VN3},
    {"ntt", PRI_NTT},       {"1tr6", PRI_1TR6},         {"tph1856", PRI_TPH1856}, {"net5", PRI_NET5},
    {"dass2", PRI_DASS2},   {"dpnss-a", PRI_DPNSS_A},   {"dpnss-b", PRI_DPNSS_B}, {"ni2", PRI_NI2},
    {"bri-5ess", BRI_5ESS}, {"bri-dms100", BRI_DMS100}, {"bri-ntt", BRI_NTT},     {"bri-net3", BRI_NET3},
    {"bri-ni1", BRI_NI1},   {"bri-ni2", BRI_NI2},
};

struct CommandLine {
    bool hex_trace = false;
    int protocol = -1;
    const char* capture = nullptr;
    const char* trace = nullptr;
};

[[noreturn]] void fail_with_usage() {
    std::string names;
    for (const ProtocolName& protocol : PROTOCOLS) {
        names += " " + std::string(protocol.name);
    }
    fail("usage: quandrix-import [-d] -p PROTOCOL CAPTURE TRACE\nPROTOCOL is a code of 0 to 255, or one of" + names);
}

// The protocol code that a text stands for, in decimal or by its name; -1 when there is none.
int protocol_code(std::string_view text) {
    int code = -1;
    const char* const end = text.data() + text.size();
    const auto* const named = std::ranges::find(PROTOCOLS, text, &ProtocolName::name);
    if (named != std::end(PROTOCOLS)) {
        return named->code;
    }
    return std::from_chars(text.data(), end, code).ptr == end && code >= 0 && code <= 255 ? code : -1;
}

CommandLine read_command_line(int argc, char** argv) {
    CommandLine command;
    opterr = 0;
    for (int option = getopt(argc, argv, "dp:"); option != -1; option = getopt(argc, argv, "dp:")) {
        if (option == 'd') {
            command.hex_trace = true;
        } else if (option == 'p') {
            command.protocol = protocol_code(optarg);
        } else {
            fail_with_usage();
        }
    }
    if (command.protocol < 0 || argc - optind != 2) {
        fail_with_usage();
    }
    command.capture = argv[optind];
    command.trace = argv[optind + 1];
    return command;
}

// Texts begin without control characters, which pcap and pcapng have among their first eight octets.
bool is_text(std::string_view head) {
    return std::ranges::all_of(head, [](char character) {
        const auto octet = static_cast<std::uint8_t>(character);
        return octet >= 0x20 || (octet >= '\t' && octet <= '\r');
    });
}

// The reader of the format that the stream's first octets show.
std::unique_ptr<CaptureReader> reader_for(InputStream& stream, const char* name) {
    const auto octets = stream.peek(8);
    const std::string head(octets.begin(), octets.end());
    if (stream.failed() != nullptr) {
        fail_with_reason(std::string("cannot read ") + name);
    }
    if (head.empty()) {
        fail(std::string(name) + " is no capture: it is empty");
    }
    if (head.starts_with(EYESDN_NAME)) {
        static_cast<void>(stream.piece(EYESDN_NAME.size()));
        return std::make_unique<EyesdnReader>(stream);
    }
    if (is_text(head)) {
        return std::make_unique<TextReader>(stream);
    }
    return std::make_unique<PcapReader>(stream, name);
}

struct Counts {
    std::int64_t packets = 0;
    std::int64_t frames = 0;
    std::int64_t others = 0;
    std::int64_t unusable = 0;
};

void convert(CaptureReader& reader, TraceWriter& writer, const OutputStream& trace, Counts& counts) {
    for (Packet packet; !trace.lost() && reader.next(packet);) {
        ++counts.packets;
        const char* const trouble = trouble_of(packet);
        if (trouble != nullptr) {
            ++counts.unusable;
            say(reader.unit() + (" " + std::to_string(packet.number)) + " is left out: " + trouble);
        } else if (packet.other) {
            ++counts.others;
        } else {
            ++counts.frames;
            writer.write(packet.frame);
        }
    }
    writer.finish();
}

InputStream source;
OutputStream trace;

}  // namespace

int main(int argc, char** argv) {
    prepare_streams();
    const CommandLine command = read_command_line(argc, argv);
    open_source(source, command.capture);
    const auto reader = reader_for(source, command.capture);
    create_target(trace, command.trace, source.descriptor());
    TraceWriter writer(trace, static_cast<std::uint8_t>(command.protocol), command.hex_trace);
    Counts counts;
    convert(*reader, writer, trace, counts);
    close_target(trace);
    say(std::to_string(counts.frames) + " frames from " + std::to_string(counts.packets) +
        " packets; left out: " + std::to_string(counts.others) + " of other channels or layers, " +
        std::to_string(counts.unusable) + " not convertible");
    if (writer.clamped() != 0) {
        say(std::to_string(writer.clamped()) + " frames have the nearest time that a trace can hold, not their own");
    }
    if (source.failed() != nullptr) {
        fail("could not read all of " + std::string(command.capture));
    }
    return counts.unusable == 0 && writer.clamped() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
