#pragma once

#include "captures/frame.h"
#include "io/interface.h"

// Writes a capture frame by frame.
class CaptureWriter : public Interface {
 public:
    // Writes a frame whose time is from 1970 on.
    virtual void write(const Frame& frame) = 0;
};
