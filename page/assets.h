#pragma once

#include <string_view>

// page.html, page.css and page.js as they are in the source folder, and the hashes of the latter two in the words of a
// content security policy; made by CMake.
extern const std::string_view PAGE_DOCUMENT;
extern const std::string_view PAGE_STYLE;
extern const std::string_view PAGE_SCRIPT;
extern const std::string_view PAGE_STYLE_HASH;
extern const std::string_view PAGE_SCRIPT_HASH;
