#pragma once

// Decodes the message in the octets that layer_2() left (Q.931 section 4): protocol discriminator, call reference,
// message type and information elements. Afterwards `msglen` is 0, or below 0 when an element was read past the end of
// the record.
void layer_3();
