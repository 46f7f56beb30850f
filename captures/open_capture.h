#pragma once

#include <memory>

#include "captures/capture_reader.h"
#include "io/input_stream.h"

// Opens a capture or a text ("-": standard input), and gives the reader for its format, which the first octets tell.
// The reader takes the rest from the stream. When there is no reader for it, the run ends with a message.
std::unique_ptr<CaptureReader> open_capture(InputStream& stream, const char* name);
