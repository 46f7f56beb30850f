#pragma once

#include <optional>
#include <string>

// What the command line asks for.
struct CommandLine {
    const char* Source = nullptr;            // the trace file
    std::optional<std::string> Destination;  // the report; none until the default name is formed
    const char* Option = nullptr;            // the argument that selected a hex trace; none for a binary one
};

// Takes the arguments of main apart. None without a SOURCE, or with an option that is not known: then it has printed
// why and the usage text.
std::optional<CommandLine> read_command_line(int argc, char** argv);

// Prints the banner on the terminal.
void velmarix_header();
