// For libFuzzer: traces into captures and back, in the formats that the project reads itself, one input for each call.
//
// An input is a protocol code, a kind octet, and data:
// - kind 0: the hex text of a trace's records, which is exported;
// - kind 1: the records of an EyeSDN file, which are imported;
// - any other kind: a text with one frame on each line, which is imported.

#include <cstddef>
#include <cstdint>
#include <span>

#include "captures/eyesdn_reader.h"
#include "captures/eyesdn_writer.h"
#include "captures/pcapng_writer.h"
#include "captures/text_reader.h"
#include "captures/trace_frames.h"
#include "captures/trace_writer.h"
#include "io/input_stream.h"
#include "report/state.h"
#include "trace/format.h"
#include "trace/trace_reader.h"

namespace {

OutputStream target;  // which drops all bytes

void export_trace(std::uint8_t protocol) {
    BRItrace = protocol >= BASIC_RATE_FROM ? 1 : 0;
    Ticks_resolution = protocol;
    TraceFrames frames(trace_reader);
    PcapngWriter pcapng(target);
    EyesdnWriter eyesdn(target);
    for (Frame frame; frames.next(frame);) {
        pcapng.write(frame);
        eyesdn.write(frame);
    }
}

void import_capture(CaptureReader& reader, std::uint8_t protocol) {
    TraceWriter hex(target, protocol, true);
    TraceWriter binary(target, protocol, false);
    for (Packet packet; reader.next(packet);) {
        if (trouble_of(packet) == nullptr && !packet.other) {
            hex.write(packet.frame);
            binary.write(packet.frame);
        }
    }
}

void convert(std::uint8_t protocol, std::uint8_t kind) {
    if (kind == 0) {
        export_trace(protocol);
    } else if (kind == 1) {
        EyesdnReader reader(ifp);
        import_capture(reader, protocol);
    } else {
        TextReader reader(ifp);
        import_capture(reader, protocol);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    reset_state();
    trace_reader.reset();
    target.attach(-1, "target");
    ofp.attach(-1, "report");
    ifp.open({data + 2, size - 2});
    try {
        convert(data[0], data[1]);
    } catch (const RunAborted&) {
        // Most traces end in the middle of a record.
    }
    return 0;
}
