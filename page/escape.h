#pragma once

#include <string>
#include <string_view>

// Text from a trace in a page, where no byte of it may become markup.

// Appends bytes as the page's data blocks hold them: printable ASCII and line ends as they are, but '<', '\' and all
// other bytes as "\3c". 39 blanks at the beginning of a line, the indent of transmitted frames, become "\>".
void append_data(std::string& data, std::string_view bytes);

// The same of a row of values: the tabs between them stay, and there is no indent.
void append_values(std::string& data, std::string_view values);

// The text for HTML outside of scripts: & < > " ' as entities, bytes outside of printable ASCII as '?'.
std::string html_text(std::string_view bytes);
