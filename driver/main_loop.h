#pragma once

// Decodes record after record until a read has met the end of the trace `ifp`, or the report cannot be written. A trace
// that ends in the middle of a record, and what else ends a run early, does not come back.
void decode_records();
