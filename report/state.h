#pragma once

#include <cstdint>

#include "io/output_stream.h"

// The state that all decoders share. One frame is decoded at a time, on one thread, and every decoder reads its octets
// and writes its lines immediately. The list is closed: no variable is added to it, and a decoder that must remember
// something keeps a local one. reset_state() sets all of it.

// Switch variants, numbered as the protocol code at the head of a trace (below 128 primary rate, from 128 basic rate).
enum Variant : std::int32_t {
    NO_VARIANT = 0,
    PRI_4ESS = 2,  // 4ESS and 5ESS
    PRI_DMS100 = 7,
    PRI_VN3 = 9,
    PRI_NTT = 11,
    PRI_1TR6 = 12,
    PRI_TPH1856 = 16,
    PRI_NET5 = 17,
    PRI_DASS2 = 20,
    PRI_DPNSS_A = 23,
    PRI_DPNSS_B = 24,
    PRI_NI2 = 25,
    BRI_5ESS = 129,
    BRI_DMS100 = 130,
    BRI_NTT = 131,
    BRI_NET3 = 132,
    BRI_NI1 = 133,
    BRI_NI2 = 134,
};

// Whether traces of that variant hold frames of DASS2 or DPNSS, not of Q.921.
constexpr bool is_dpnss(Variant variant) {
    return variant == PRI_DASS2 || variant == PRI_DPNSS_A || variant == PRI_DPNSS_B;
}

// For a run -------------------------------------------------------------------------------------------------------

extern OutputStream ofp;               // the report; opened by the driver
extern Variant swit;                   // switch variant; set once from the protocol code, then only read
extern std::uint8_t BRItrace;          // 1 in a basic-rate trace: every record carries a line byte; set with swit
extern std::int32_t Ticks_resolution;  // one tick lasts 5 times this in ms; set once, any 32-bit value
extern std::int32_t First_Msg;         // 0 until the first time-stamp record has been shown, then 1
extern std::uint32_t tick_base;        // tick count of the first time-stamp record; set before First_Msg
extern char cTimeStamp[100];           // line for the next frames; empty until the second time-stamp record

// For a record: set by layer 2 from the head of a frame's record ---------------------------------------------------
// Octets that a frame left unread can come where a head is expected. They set only the TEI.

extern std::int32_t flag;            // direction: 1 receive, 0 transmit
extern std::int32_t msglen;          // octets of the record still unread, below 0 when too many were read; set
                                     // from the length byte, lowered by every input()
extern std::int32_t dsl;             // basic rate: line byte of the frame, 0..255
extern std::int32_t sapi;            // SAPI of the frame, 0..63; 0 after TEI management
extern std::int32_t tei;             // TEI of the frame, 0..127; 0 after TEI management
extern std::int32_t bCRflag;         // DASS2 and DPNSS: 1 command, 0 response
extern std::int32_t debug_msg;       // 1 after layer 2 has met a debug record, until the driver has shown it
extern std::int32_t time_stamp_msg;  // 1 after layer 2 has met a time-stamp record, until the driver has shown it

// For a message or an element -------------------------------------------------------------------------------------

extern std::int32_t value;         // the octet last read by input(), or a marker, 0..255
extern std::int32_t prtcol_discr;  // protocol discriminator of the message, 0..255; set by layer 3
extern std::int32_t Lock_shift;    // 1 after a locking shift to codeset 6, until the message ends
extern std::int32_t ielength;      // length octet of the element, counted down by decoders that test it; below 0 when
                                   // more octets were decoded than it announced

// Sets every variable above to zero, except the report. A run starts in this state.
void reset_state();

// Whether the trace's switch variant is one of those given.
template <typename... Variants>
inline bool variant_is(Variants... variants) {
    return ((swit == variants) || ...);
}

// Lowers a count of octets by one. It may go below 0; after gigabytes of damage it wraps around to the highest number.
inline void count_down(std::int32_t& count) {
    count = static_cast<std::int32_t>(static_cast<std::uint32_t>(count) - 1U);
}
