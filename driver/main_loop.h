#pragma once

#include "trace/protocol.h"

// Writes the first line of the report, with the name of the protocol.
void report_protocol(const Protocol& protocol);

// One pass: decodes the next record of the trace `ifp`, or octets that the previous pass left unread, and writes an
// empty line after it. May read octets of the records that follow. Throws RunAborted when the run ends early.
void decode_record();

// Decodes record after record until a read has met the end of the trace, or the report cannot be written.
void decode_records();
