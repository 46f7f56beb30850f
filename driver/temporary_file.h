#pragma once

// Converts the rest of the binary trace `ifp` into the hex text "pritemp.log" in the working directory and closes it.
// Another run that is still using pritemp.log there is waited for. Ends the run with status 1 when the file cannot be
// created or written, or is the trace or the report itself.
void Convert2Hex();
