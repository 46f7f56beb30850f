#pragma once

#include "captures/frame.h"
#include "report/output_stream.h"

// Write a pcap file of link type 177 (LINUX_LAPD), taken on the user side: its header, then frame by frame. Seconds
// count modulo 2 to the 32nd.
void write_pcap_header(OutputStream& capture);
void write_pcap_frame(const Frame& frame, OutputStream& capture);
