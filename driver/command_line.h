#pragma once

#include <optional>
#include <string>

// What the command line asks for.
struct CommandLine {
    const char* Source = nullptr;            // the trace file
    std::optional<std::string> Destination;  // the report; none when it is to have the default name
    const char* Option = nullptr;            // the argument that selected a hex trace; null for a binary one
};

// Reads the arguments of main. None when SOURCE is missing or an option is unknown; then the usage text has been
// printed, and what is wrong with the option before it.
std::optional<CommandLine> read_command_line(int argc, char** argv);

// Prints the banner on the terminal.
void velmarix_header();
