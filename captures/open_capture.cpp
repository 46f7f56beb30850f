#include "captures/open_capture.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "captures/eyesdn.h"
#include "captures/eyesdn_reader.h"
#include "captures/pcap_reader.h"
#include "captures/text_reader.h"
#include "io/diagnostics.h"
#include "io/operands.h"

namespace {

struct Compression {
    std::string_view begins_with;
    const char* program;  // prints what is compressed
};

constexpr Compression COMPRESSIONS[] = {
    {"\x1F\x8B", "zcat"},
    {"\3757zXZ", "xzcat"},
    {"BZh", "bzcat"},
    {"\x28\xB5\x2F\xFD", "zstdcat"},
};

void refuse_compressed(std::string_view head, const std::string& name) {
    for (const auto& [begins_with, program] : COMPRESSIONS) {
        if (head.starts_with(begins_with)) {
            fail(name + " is compressed; use: " + program + " " + name + " | quandrix-import ... -");
        }
    }
}

// Texts begin without control characters, which pcap and pcapng have among their first eight octets.
bool is_text(std::string_view head) {
    return std::ranges::all_of(head, [](char character) {
        const auto octet = static_cast<std::uint8_t>(character);
        return octet >= 0x20 || (octet >= '\t' && octet <= '\r');
    });
}

}  // namespace

std::unique_ptr<CaptureReader> open_capture(InputStream& stream, const char* name) {
    open_source(stream, name);
    const auto octets = stream.peek(8);
    const std::string head(octets.begin(), octets.end());
    if (stream.failed() != nullptr) {
        fail_with_reason(std::string("cannot read ") + name);
    }
    if (head.empty()) {
        fail(std::string(name) + " is no capture: it is empty");
    }
    refuse_compressed(head, name);
    if (head.starts_with(EYESDN_NAME)) {
        static_cast<void>(stream.piece(EYESDN_NAME.size()));
        return std::make_unique<EyesdnReader>(stream);
    }
    if (is_text(head)) {
        return std::make_unique<TextReader>(stream);
    }
    return std::make_unique<PcapReader>(stream, name);
}
