#pragma once

#include "captures/frame.h"

// Writes a capture frame by frame.
class CaptureWriter {
 public:
    CaptureWriter() = default;
    virtual ~CaptureWriter() = default;
    CaptureWriter(const CaptureWriter&) = delete;
    CaptureWriter& operator=(const CaptureWriter&) = delete;

    // Writes a frame whose time is from 1970 on.
    virtual void write(const Frame& frame) = 0;
};
