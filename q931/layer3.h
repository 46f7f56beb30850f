#pragma once

// Decodes the message in the octets that layer_2() left (Q.931 section 4): protocol discriminator, call reference,
// message type and information elements. Returns with `msglen` at 0, or below when an element ran past the record.
void layer_3();
