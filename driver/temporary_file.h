#pragma once

// Converts the rest of the binary trace `ifp` into the hex text "pritemp.log" in the working directory, closes it, and
// gives the descriptor of the text, which stays locked until it is closed. Another run that is still using that file is
// waited for. Ends the run with status 1 when the file cannot be created or written, has a second name, or is the trace
// or the report itself.
int Convert2Hex();
