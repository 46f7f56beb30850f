#pragma once

#include "captures/frame.h"
#include "report/output_stream.h"

// Write an EyeSDN file of DPNSS frames on the D channel: its header, then frame by frame.
void write_eyesdn_header(OutputStream& capture);
void write_eyesdn_frame(const Frame& frame, OutputStream& capture);
