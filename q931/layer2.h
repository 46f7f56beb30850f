#pragma once

// Reads the head of the next trace record and decodes the LAPD frame header (Q.921 section 3): address octets and
// control field. Afterwards `msglen` is the number of octets of the record still unread, below 0 when too many were
// read. Of a debug or time-stamp record only the marker is read, and `debug_msg` or `time_stamp_msg` is set to 1.
void layer_2();
