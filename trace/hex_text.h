#pragma once

#include <cstdint>
#include <span>

#include "io/input_stream.h"
#include "io/output_stream.h"

// The hex text that a binary trace is read as: two lower-case digits for each octet, a blank between octets, and a line
// end after every 26 octets, not counting the first octet of the trace body.

// Writes the text of octets. `position` is the index of the first of them in the trace body, from 0; `text` has room
// for 4 characters for each octet. Returns the end of what it wrote.
char* hex_text(std::span<const std::uint8_t> octets, std::uint64_t position, char* text);

// Turns the rest of a binary trace into hex text, and stops when a write fails. The caller flushes `text`.
void write_hex_text(InputStream& binary, OutputStream& text);
