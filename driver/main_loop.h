#pragma once

#include "trace/protocol.h"

// Names the protocol in the report, its first line.
void report_protocol(const Protocol& protocol);

// One pass: decodes the next record of the trace `ifp`, or what the pass before left unread of one, and ends with an
// empty line in the report. May take octets of the records that follow. What ends a run early is thrown (RunAborted).
void decode_record();

// Decodes record after record until a read has met the end of the trace, or the report cannot be written.
void decode_records();
