#pragma once

// The two kinds of record that hold no frame, from the byte after the marker on. Both end with `msglen` at 0.

// Debug record: two numbers and a text, shown on two lines.
void debug_record();

// Time-stamp record: a tick count and a text. The text is shown; the first record of a trace is followed by the start
// time on the same line, the later ones set the time of the frames after them.
void time_stamp_record();
