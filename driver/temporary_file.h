#pragma once

// Converts the rest of the binary trace `ifp` into the hex text "pritemp.log" in the working directory, which `ifp` is
// then; it stays locked until that is closed. Another run that is still using the file is waited for. False when the
// file cannot be created, written or read back, has a second name, or is the trace, the report or the terminal's text;
// why is said on the terminal.
[[nodiscard]] bool Convert2Hex();
