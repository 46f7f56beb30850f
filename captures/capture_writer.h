#pragma once

#include "captures/frame.h"

// A capture written frame by frame.
class CaptureWriter {
 public:
    CaptureWriter() = default;
    virtual ~CaptureWriter() = default;
    CaptureWriter(const CaptureWriter&) = delete;
    CaptureWriter& operator=(const CaptureWriter&) = delete;

    virtual void write(const Frame& frame) = 0;
};
