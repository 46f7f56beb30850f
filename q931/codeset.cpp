#include "q931/codeset.h"

#include "q931/element_lines.h"

namespace {

// An octet as "%2x" writes it, with a blank instead of a leading zero.
void padded_hex(std::int32_t octet) {
    if (octet > 0x0F) {
        hex(octet);
    } else {
        text(" ");
        text({hex_pair(octet) + 1, 1});
    }
}

}  // namespace

void codeset6() {
    title("CODESET 6");
    Lock_shift = 1;
}

void codeset7() {
    if (variant_is(PRI_4ESS, PRI_NI2)) {
        title("CODESET 7");
    }
}

void non_locking_shift() {
    title("NON-LOCKING SHIFT ");
    line("      10011--- non-locking shift\n");
    field(3, 1, (value & 0x07) == 6 ? " Shift to Codeset 6\n" : " Shift to Codeset 0\n");
}

void moredata() {
    if (variant_is(PRI_4ESS, PRI_NI2)) {
        title("MORE DATA");
    }
}

void sending_complete() { title("SENDING COMPLETE"); }

void congestion_level() {
    if (variant_is(PRI_4ESS, PRI_NI2)) {
        title("CONGESTION LEVEL");
    }
}

void ie_codeset6() {
    octet();
    title("CODESET 6 IE ");
    length_line();
    for (std::int32_t i = 0; i < ielength; ++i) {
        octet();
        text("  ");
        decimal(i + 3);
        text(":        0x");
        padded_hex(value);
        text(" CODESET 6 IE Content\n");
    }
}
