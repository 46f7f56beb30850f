#pragma once

// Reads the next element identifier of codeset 0 and decodes the element (Q.931 section 4.5): by its own decoder where
// there is one, octet by octet where there is none. An identifier that the variant does not know is only read; the
// next octet of the element is then taken as an identifier, and the indent stays on the line.
void ie_id();
