#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "captures/capture_writer.h"
#include "io/output_stream.h"

// Writes a pcapng file of link type 177 (LINUX_LAPD), taken on the user side. Each line is an interface with a name
// like "line 4", because tshark has a field for that name, and none for the line in the frame's header.
class PcapngWriter : public CaptureWriter {
 public:
    explicit PcapngWriter(OutputStream& capture);
    ~PcapngWriter() override;
    PcapngWriter(const PcapngWriter&) = delete;
    PcapngWriter& operator=(const PcapngWriter&) = delete;

    void write(const Frame& frame) override;

 private:
    std::uint32_t interface_of(std::uint8_t line);
    void write_interface(std::uint8_t line);

    OutputStream& capture_;
    std::uint32_t interfaces_ = 0;
    std::array<std::optional<std::uint32_t>, 256> interface_of_line_;
};
