#pragma once

#include <optional>
#include <string>

// What the command line asks for.
struct CommandLine {
    const char* Source = nullptr;            // the trace file
    std::optional<std::string> Destination;  // the report; none until the default name is formed
    const char* Option = nullptr;            // the argument that selected a hex trace; none for a binary one
};

extern CommandLine Parameter;

// Fills Parameter from the arguments of main. Without a SOURCE, or with an option that is not known, prints why and
// the usage text and exits with status 1.
void read_command_line(int argc, char** argv);

// Prints the banner on the terminal.
void velmarix_header();
