// quandrix-import: the frames of a capture (pcap, pcapng, EyeSDN) or of a text as a trace.

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "captures/capture_reader.h"
#include "captures/eyesdn.h"
#include "captures/eyesdn_reader.h"
#include "captures/pcap_reader.h"
#include "captures/protocol_names.h"
#include "captures/text_reader.h"
#include "captures/trace_writer.h"
#include "io/diagnostics.h"
#include "io/file_access.h"
#include "io/input_stream.h"
#include "io/operands.h"
#include "io/options.h"

namespace {

constexpr Usage USAGE{
    .line = "quandrix-import [-d] -p PROTOCOL CAPTURE TRACE",
    .help =
        "Makes a trace of the ISDN frames in a capture (pcap, pcapng, EyeSDN) or a text.\n"
        "For CAPTURE and TRACE, - is standard input and output.\n"
        "  -p PROTOCOL  of the line: a code of 0 to 255, or one of\n"
        "               4ess 5ess dms100 vn3 ntt 1tr6 tph1856 net5 dass2 dpnss-a dpnss-b ni2\n"
        "               bri-5ess bri-dms100 bri-ntt bri-net3 bri-ni1 bri-ni2\n"
        "  -d           write hex text, not a binary trace\n"
        "  -h, --help   show this text\n"
        "  --version    show the version\n",
    .letters = "dp:",
    .wrong_status = EXIT_FAILURE,
};

struct CommandLine {
    bool hex_trace = false;
    std::optional<std::uint8_t> protocol;
    const char* capture = nullptr;
    const char* trace = nullptr;
};

// Takes the option -p. What is wrong with it.
std::string read_protocol(const char* value, std::optional<std::uint8_t>& protocol) {
    protocol = protocol_code(value);
    return protocol ? "" : std::string("no PROTOCOL (--help lists them): ") + value;
}

CommandLine read_command_line(int argc, char** argv) {
    CommandLine command;
    const auto operands = read_options(argc, argv, USAGE, [&](char letter, const char* value) -> std::string {
        if (letter == 'p') {
            return read_protocol(value, command.protocol);
        }
        command.hex_trace = true;
        return {};
    });
    if (!command.protocol) {
        fail_with_usage(USAGE, "no -p PROTOCOL");
    }
    expect_operands(operands, {"CAPTURE", "TRACE"}, USAGE);
    command.capture = operands[0];
    command.trace = operands[1];
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
    std::int64_t wrong_fractions = 0;
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
            counts.wrong_fractions += packet.wrong_fraction ? 1 : 0;
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
    TraceWriter writer(trace, *command.protocol, command.hex_trace);
    Counts counts;
    convert(*reader, writer, trace, counts);
    close_target(trace);
    say(std::to_string(counts.frames) + " frames from " + std::to_string(counts.packets) +
        " packets; left out: " + std::to_string(counts.others) + " of other channels or layers, " +
        std::to_string(counts.unusable) + " not convertible");
    if (counts.wrong_fractions != 0) {
        say(std::to_string(counts.wrong_fractions) +
            " frames have a wrong fraction of a second in the capture: it counts as 0");
    }
    if (writer.clamped() != 0) {
        say(std::to_string(writer.clamped()) + " frames have the nearest time that a trace can hold, not their own");
    }
    if (source.failed() != nullptr) {
        fail("could not read all of " + std::string(command.capture));
    }
    return counts.unusable == 0 && counts.wrong_fractions == 0 && writer.clamped() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
