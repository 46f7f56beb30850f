#pragma once

#include <memory>

#include "captures/capture_reader.h"
#include "io/input_stream.h"

// Opens a capture or text, "-" for standard input, and gives the reader for its format, which its first octets tell.
// The reader reads from the stream. Ends the run with a message when there is none for it.
std::unique_ptr<CaptureReader> open_capture(InputStream& stream, const char* name);
