#pragma once

#include <string>
#include <string_view>

// Text from a trace in a page, where no byte of it may become markup.

// Appends bytes as the page's data blocks hold them: printable ASCII and line ends as they are, but '<', '\' and all
// other bytes as "\3c"; at the beginning of a line each 39 blanks, the indent of transmitted frames, as "\>".
void append_data(std::string& data, std::string_view bytes);

// The same of values with tabs between them; the tabs stay.
void append_values(std::string& data, std::string_view values);

// The text for HTML outside of scripts: & < > " ' as entities, bytes outside of printable ASCII as '?'.
std::string html_text(std::string_view bytes);
