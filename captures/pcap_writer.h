#pragma once

#include "captures/capture_writer.h"
#include "io/output_stream.h"

// Writes a pcap file of link type 177 (LINUX_LAPD), taken on the user side; its header when made. Seconds count modulo
// 2 to the 32nd.
class PcapWriter : public CaptureWriter {
 public:
    explicit PcapWriter(OutputStream& capture);

    void write(const Frame& frame) override;

 private:
    OutputStream& capture_;
};
