#pragma once

// Reads the head of the next trace record and the three layer 2 octets of a DASS2 or DPNSS frame (BTNR 190 and 188):
// command/response, timeslot, control field. Leaves in `msglen` the octets still unread, below 0 when the record was
// shorter. A debug record is shown whole. Any other marker, a time stamp's included, ends the run with status 1.
void ds2_layer2();
