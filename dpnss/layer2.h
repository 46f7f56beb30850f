#pragma once

// Reads the head of the next trace record and the three layer 2 octets of a DASS2 or DPNSS frame (BTNR 190 and 188):
// command/response, timeslot, control field. Afterwards `msglen` is the number of octets still unread, below 0 when the
// record was too short. A debug record is shown whole. Any other marker, even that of a time stamp, aborts the run
// (Abort::NO_RECORD).
void ds2_layer2();
