#pragma once

#include "driver/command_line.h"

// Opens the files that the command line names: creates the report `ofp`, reads the trace header, prints the banner, and
// turns a binary trace into hex text. Afterwards the trace `ifp` is at its first number. A missing DESTINATION is
// filled in. False when a file cannot be used; the reason is printed on the terminal.
[[nodiscard]] bool open_files(CommandLine& Parameter);
