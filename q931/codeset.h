#pragma once

// Single-octet elements (Q.931 section 4.5.2 on) and codeset 6. When a single-octet decoder is called, the identifier
// is in `value` and the indent of the title is written; it reads nothing. If the variant does not show the element, the
// indent stays on the line.

void codeset6();           // 0x96: the rest of the message is decoded by ie_codeset6()
void codeset7();           // 0x97
void non_locking_shift();  // 0x98, 0x9E: the next element is decoded as always
void moredata();           // 0xA0
void sending_complete();   // 0xA1
void congestion_level();   // 0xB0

// Decodes one element of codeset 6, identifier included: every identifier is followed by a length octet.
void ie_codeset6();
