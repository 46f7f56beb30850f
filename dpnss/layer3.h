#pragma once

// Decodes the DASS2 or DPNSS message in the octets that ds2_layer2() left: message type and fields, in the fixed order
// of each message. What a message without a field of characters leaves unread is taken as the next record's marker,
// which most often ends the run.
void ds2_layer3();
