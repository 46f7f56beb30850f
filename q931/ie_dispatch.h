#pragma once

// Reads the next identifier of codeset 0 and decodes its information element (Q.931 section 4.5). An identifier without
// a decoder is shown octet by octet. An identifier whose decoder belongs to other variants is only read: its indent
// stays on the line, and the next octet of the element is taken as an identifier.
void ie_id();
