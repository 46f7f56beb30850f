#pragma once

#include <cstdint>
#include <string_view>

#include "report/lines.h"
#include "report/state.h"
#include "trace/trace_reader.h"

// The lines that all information elements begin with, and those of elements whose octets are all alike:
//
//     1:           CALL STATE(0x14)        title()
//     2:           IE Length(0x01)         length_line()

// Title line of an element, with the identifier in `value`: "  1:           CAUSE(0x08)\n". The dispatch has already
// written the indent.
[[gnu::always_inline]] inline void title(std::string_view name) {
    text("  1:           ");
    named_octet(name);
}

// Reads the length octet into `ielength` and writes its line.
void length_line();

// Reads all octets left in the element (none when `ielength` is 0 or below). Each gets a value line, with its bits that
// are set in `mask`.
void value_lines(std::string_view before, std::int32_t mask, std::string_view after);

// The same with the octet's number as the tag, counted from first: "  5:      0x41 User Data\n".
void numbered_lines(std::int32_t first, std::string_view label);

// Reads all octets left in the element into one line: six spaces, the octets as they are, the label.
void character_line(std::string_view label);
