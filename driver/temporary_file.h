#pragma once

// Converts the rest of the binary trace `ifp` into hex text, the file "pritemp.log" in the working directory. `ifp`
// then reads that file, which is locked until `ifp` is closed. Waits while another run uses the file.
//
// False, with the reason on the terminal, when the file
// - cannot be created, written or read back, or has a second name;
// - is the trace, the report, or the file that standard output or standard error goes to.
[[nodiscard]] bool Convert2Hex();
