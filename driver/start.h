#pragma once

#include "driver/command_line.h"

// Opens the files that the command line names, up to the first number of the trace `ifp`: creates the report `ofp`,
// reads the header, prints the banner, and turns a binary trace into hex text. A missing DESTINATION is filled in.
// False when a file cannot be used; why is said on the terminal.
[[nodiscard]] bool open_files(CommandLine& Parameter);
