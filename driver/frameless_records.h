#pragma once

// The two kinds of record that hold no frame, from the byte after the marker on. Both end with `msglen` at 0.

// Debug record: two numbers and a text, shown on two lines.
void debug_record();

// Time-stamp record: a tick count and a text. The text is shown. In the first record of a trace, the start time follows
// on the same line; a later one sets the time of the frames after it.
void time_stamp_record();
