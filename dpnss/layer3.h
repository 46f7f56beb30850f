#pragma once

// Decodes the DASS2 or DPNSS message in the octets that ds2_layer2() left: message type and fields, in the fixed order
// of each message. A message shown by its line alone leaves the rest of the record unread.
void ds2_layer3();
