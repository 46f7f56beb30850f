#pragma once

#include <cstdint>
#include <string_view>

// The fields of DASS2 and DPNSS messages. The coded fields read their octets even when the record has none left. The
// character fields read the rest of the record; if nothing is left, they print nothing, not even a title.

void service_ind_code();    // service indicator code: one octet, two when bit 8 of the first is 1
void selection_field();     // characters to the end of the record
void indication_field();    // characters to the end of the record
void clear_rej_cause();     // one octet, with its text
void maintenance_action();  // one octet, with its text
void udc_control_field();   // one octet, with its text

// The text of a clear/reject cause (0..255).
std::string_view ds2_CauseText(std::int32_t code);
