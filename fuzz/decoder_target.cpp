// For libFuzzer: the decoding of a trace, from its text to the report, one input for each call.
//
// An input is a kind octet and the body of a trace: protocol code, tick resolution, records.
// - An even kind means a hex trace: the body is text.
// - An odd kind means a binary trace: the body is octets, which are converted to text here.
// - The kind also fills the trace header, so that traces start at many different times.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "driver/main_loop.h"
#include "io/input_stream.h"
#include "report/state.h"
#include "trace/clock.h"
#include "trace/hex_text.h"
#include "trace/protocol.h"
#include "trace/trace_reader.h"

namespace {

// The text that a body is read as.
std::span<const std::uint8_t> text_of(std::uint8_t kind, std::span<const std::uint8_t> body) {
    if (kind % 2 == 0) {
        return body;
    }
    std::vector<char> characters(4 * body.size());
    static std::vector<std::uint8_t> text;
    text.assign(characters.data(), hex_text(body, 0, characters.data()));
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::uint8_t kind = data[0];
    reset_state();
    trace_reader.reset();
    Timeb.time = static_cast<std::int32_t>(kind * 0x01010101U);
    Timeb.millitm = static_cast<std::uint16_t>(kind * 0x0101U);
    ifp.open(text_of(kind, {data + 1, size - 1}));
    ofp.attach(-1, "report");  // all bytes are dropped
    try {
        read_protocol();
        read_ticks_resolution();
        decode_records();
    } catch (const RunAborted&) {
        // Most inputs end in the middle of a record.
    }
    return 0;
}
