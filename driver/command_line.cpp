#include "driver/command_line.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr char optionList[] = "dD";  // the option letters that are accepted

bool begins_with_dash(const char* argument) { return argument[0] == '-'; }

// Only arguments of exactly two characters are options: "-pri" is not.
bool is_option(const char* argument) { return std::strlen(argument) == 2 && begins_with_dash(argument); }

bool is_known_option(const char* argument) { return std::strchr(optionList, argument[1]) != nullptr; }

// Whether the second argument is the DESTINATION, by the number of arguments.
bool has_destination(int count, char** argv) {
    switch (count) {
        case 2: return !begins_with_dash(argv[2]);
        case 3:  // with "-d out" the report is named "-d"
            return !(begins_with_dash(argv[2]) && begins_with_dash(argv[3]));
        case 4: return true;
        default: return false;
    }
}

// Prints the usage text.
void print_msg() {
    std::fputs(
        "QUANDRIX Version 1.00-Alpha\n\n"
        "Usage: QUANDRIX SOURCE [DESTINATION] [options]\n"
        "SOURCE          Specifies the input filename to be read.\n"
        "[DESTINATION]   Specifies the output filename to be written.\n"
        "                      If NOT specified then output filename will\n"
        "                      default to SOURCE name with extension \"res\" \n"
        "options:\n"
        "[-d]            To run the Hex trace file\n"
        "[-p|b]          ISDN Protocol [PRI|BRI]  (DEFAULT=PRI)\n",
        stdout);
}

}  // namespace

void velmarix_header() {
    std::fputs(
        "\nVelmarix ISDN Trace Utility\n"
        "Offline decoder of ISDN D-channel traces\n"
        "Version 1.00-Alpha-0.10\n",
        stdout);
}

std::optional<CommandLine> read_command_line(int argc, char** argv) {
    if (argc < 2) {
        print_msg();
        return std::nullopt;
    }
    CommandLine Parameter;
    Parameter.Source = argv[1];
    if (has_destination(argc - 1, argv)) {
        Parameter.Destination = argv[2];
    }
    for (int i = 2; i < argc && Parameter.Option == nullptr; ++i) {
        if (is_option(argv[i]) && is_known_option(argv[i])) {
            Parameter.Option = argv[i];
        }
    }
    for (int i = 1; i < argc; ++i) {
        if (is_option(argv[i]) && !is_known_option(argv[i])) {
            std::fputs("Error - Invalid option\n", stdout);
            print_msg();
            return std::nullopt;
        }
    }
    return Parameter;
}
