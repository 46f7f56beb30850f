#pragma once

#include <pcap/pcap.h>

#include <memory>
#include <string>

#include "captures/capture_reader.h"
#include "io/input_stream.h"

// Reads a pcap or pcapng file of link type LINUX_LAPD (177) or LAPD (203). The directions are those that the user side
// sees. With link type 203 the C/R bit tells them (Q.921 section 3.3.2).
class PcapReader : public CaptureReader {
 public:
    // Reads the file's head. Ends the run with a message when it is no capture, or has another link type.
    PcapReader(InputStream& stream, const char* name);

    bool next(Packet& packet) override;

 private:
    struct Close {
        void operator()(pcap_t* pcap) const { pcap_close(pcap); }
    };

    std::unique_ptr<pcap_t, Close> pcap_;
    int link_type_ = 0;
    std::int64_t number_ = 0;
    bool ended_ = false;
    std::string why_ended_;
};
