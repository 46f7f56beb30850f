#pragma once

#include <string_view>

#include "calls/message.h"
#include "calls/octets.h"
#include "report/state.h"

// The parts of read_message(). What they take from a record they add to the message; what the record does not hold
// whole is left out.

// A message of Q.931, protocol discriminator first. Where its head is not whole, it is none.
void read_q931_message(Message& message, Variant variant, Octets& octets);

// The information elements of a message, of codeset 0.
void read_elements(Message& message, Variant variant, Octets& octets);

// A frame of DASS2 or DPNSS, and its message.
void read_dpnss_frame(Message& message, Variant variant, Octets& octets);

// Numbers in selection fields, which hold strings "*...#": "*50*...#" with the number of the side that calls, and
// outside of strings the number called. Within another string "*50*" is a parameter.
std::string_view calling_number(std::string_view selection);
std::string called_number(std::string_view selection);
