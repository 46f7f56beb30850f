#pragma once

#include <cstdint>
#include <span>

#include "io/input_stream.h"
#include "io/output_stream.h"

// The hex text that a binary trace is read as: two lower-case digits an octet, a blank between octets, and a line end
// behind every 26, of which the first of all is not counted.

// Writes the text of octets that begin at a position in the trace body (from 0); `text` has room for 4 characters an
// octet. Gives the end of what it wrote.
char* hex_text(std::span<const std::uint8_t> octets, std::uint64_t position, char* text);

// Turns the rest of a binary trace into hex text, or as much of it as can be written. It is still to be flushed.
void write_hex_text(InputStream& binary, OutputStream& text);
