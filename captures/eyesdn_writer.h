#pragma once

#include "captures/capture_writer.h"
#include "io/output_stream.h"

// Writes an EyeSDN file of DPNSS frames on the D channel. The constructor writes the file's name.
class EyesdnWriter : public CaptureWriter {
 public:
    explicit EyesdnWriter(OutputStream& capture);

    void write(const Frame& frame) override;

 private:
    OutputStream& capture_;
};
