#pragma once

// Single-octet elements (Q.931 section 4.5.2 on) and codeset 6. The single-octet decoders are called with the
// identifier in `value` and the title's indent written, and read nothing. Under a variant that does not show an
// element, its indent stays on the line.

void codeset6();           // 0x96: the rest of the message is decoded by ie_codeset6()
void codeset7();           // 0x97
void non_locking_shift();  // 0x98, 0x9E: changes nothing for the next element
void moredata();           // 0xA0
void sending_complete();   // 0xA1
void congestion_level();   // 0xB0

// Decodes one element of codeset 6, identifier included: every identifier is followed by a length octet.
void ie_codeset6();
