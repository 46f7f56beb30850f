#pragma once

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <stdexcept>
#include <string>

// Calls `add` with the file and the text of each line in the files of a folder of tests/. It says whether the line
// has a form that it knows; another one is an error.
template <typename Add>
void for_each_line(const std::string& folder, const Add& add) {
    using Path = std::filesystem::path;
    for (const auto& file : std::set<Path>(std::filesystem::directory_iterator(TESTS "/" + folder), {})) {
        std::ifstream stream(file);
        int number = 0;
        for (std::string text; std::getline(stream, text);) {
            const std::string place = file.string() + ":" + std::to_string(++number);
            if (!add(place, text)) {
                throw std::runtime_error(place + ": not a part of a case: " + text);
            }
        }
    }
}

// The first part of the title of a case, in the characters that GoogleTest allows.
inline std::string test_name(const std::string& title) {
    return std::regex_replace(title.substr(0, title.find_first_of(":;")), std::regex("[^A-Za-z0-9]"), "_");
}
