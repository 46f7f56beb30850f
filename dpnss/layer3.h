#pragma once

// Decodes the DASS2 or DPNSS message in the octets that ds2_layer2() left: message type and fields, in the fixed order
// of each message. A message without a character field may leave octets unread. The next one is then taken as a record
// marker, which usually aborts the run.
void ds2_layer3();
