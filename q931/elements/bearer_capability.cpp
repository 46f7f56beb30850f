#include "q931/element_lines.h"
#include "q931/elements/elements.h"

// Bearer capability (Q.931 section 4.5.5), identifier 0x04
//   octet 3:   ext | coding standard 7..6 | information transfer capability 5..1
//   octet 4:   ext | transfer mode 7..6 | information transfer rate 5..1
//   octet 4a:  ext | structure 7..5 | configuration 4..3 | establishment 2..1
//   octet 4b:  ext | symmetry 7..6 | information transfer rate, destination to origination 5..1
//   octet 4.1: ext | rate multiplier 7..1 (DMS100, when the rate is multirate)
//   then one group, chosen by bits 7..6 of its first octet: layer 1 (5 to 5d), layer 2 (6) or layer 3 (7)
// The length left is only compared with 0: below 0 it counts like a length above 0.

namespace {

constexpr std::int32_t MULTIRATE = 0x18;
constexpr std::int32_t V110 = 0x01;
constexpr std::int32_t V120 = 0x08;

bool has_octets_4a_to_7() {
    return variant_is(PRI_4ESS, PRI_DMS100, PRI_NTT, PRI_TPH1856, PRI_NET5, PRI_NI2, BRI_5ESS, BRI_DMS100, BRI_NTT,
                      BRI_NET3, BRI_NI1, BRI_NI2);
}

void octet_3() {
    octet();
    text("  3:  1------- Extension Bit\n");
    field(7, 6, " Coding Standard\n");
    field(5, 1, " Info. Transfer Cap.\n");
    count_down(ielength);
}

void octet_4() {
    octet();
    if (has_octets_4a_to_7() || variant_is(PRI_VN3)) {
        extension_bit("  4:  1------- Extension Bit\n", "  4:  0------- Extension Bit\n");
    }  // else the indent stays on the line
    field(7, 6, " Transfer Mode\n");
    field(5, 1, " Info. Transfer Rate\n");
    count_down(ielength);
}

void octet_4a() {
    octet();
    extension_bit(" 4a:  1------- Extension Bit\n", " 4a:  0------- Extension Bit\n");
    field(7, 5, " Structure\n");
    field(4, 3, " Configuration\n");
    field(2, 1, " Establishment\n");
    count_down(ielength);
}

void octet_4b() {
    octet();
    extension_bit(" 4b:  1------- Extension Bit\n", " 4b:  0------- Extension Bit\n");
    field(7, 6, " Symmetry\n");
    field(5, 1, " Info. Transfer Rate\n");
    count_down(ielength);
}

void octet_4_1() {
    octet();
    text("4.1:  1------- Extension Bit\n");
    field(7, 1, " Rate Multiplier\n");
    count_down(ielength);
}

// Octet 5a: user rate. Bit 6 has no line on basic rate, and shares one with bit 7 in DMS100.
void octet_5a() {
    octet();
    extension_bit(" 5a:  1------- Extension Bit\n", " 5a:  0------- Extension Bit\n");
    if (variant_is(PRI_DMS100)) {
        line("      -00----- Spare\n");
    } else {
        field(7, 7, " Synchronous Asynch.\n");
    }
    if (variant_is(PRI_4ESS, PRI_TPH1856, PRI_NI2)) {
        line("      --0----- Spare\n");
    }
    if (variant_is(PRI_NTT, PRI_NET5)) {
        field(6, 6, " Negotiation\n");
    }
    field(5, 1, " User Rate\n");
    count_down(ielength);
}

void octet_5b_v110() {
    octet();
    extension_bit("  5b: 1------- Extension Bit\n", "  5b: 0------- Extension Bit\n");
    field(7, 6, " Intermediate rate\n");
    field(5, 5, " NIC on Tx\n");
    field(4, 4, " NIC on Rx\n");
    field(3, 3, " Flow control on Tx\n");
    field(2, 2, " Flow control on Rx\n");
    line("      -------0 Spare\n");
}

void octet_5b_v120() {
    octet();
    extension_bit("  5b: 1------- Extension Bit\n", "  5b: 0------- Extension Bit\n");
    field(7, 7, " Hdr/no Hdr\n");
    field(6, 6, " Multiframe support\n");
    field(5, 5, " Mode\n");
    field(4, 4, " LLI negotiation\n");
    field(3, 3, " Assignor/Assignee\n");
    field(2, 2, " Inband/Outband negotiation\n");
    line("      -------0 Spare\n");
}

void octet_5c() {
    octet();
    extension_bit("  5c: 1------- Extension Bit\n", "  5c: 0------- Extension Bit\n");
    field(7, 6, " Number of stop bits\n");
    field(5, 4, " Number of data bits\n");
    field(3, 1, " Parity\n");
}

void octet_5d() {
    octet();
    text("  5d: 1------- Extension Bit\n");
    field(7, 7, " Duplex mode\n");
    field(6, 1, " Modem type\n");
}

// Octets 5b to 5d. Neither extension bits nor the length are tested, so octets after the element may be read for them.
void rate_adaption(std::int32_t layer_1_protocol) {
    if (layer_1_protocol == V110) {
        octet_5b_v110();
    } else if (layer_1_protocol == V120) {
        octet_5b_v120();
    }
    octet_5c();
    octet_5d();
}

void layer_1_group() {
    const std::int32_t layer_1_protocol = value & 0x1F;
    extension_bit("  5:  1------- Extension Bit\n", "  5:  0------- Extension Bit\n");
    line("      -01----- Layer 1 Indent\n");
    field(5, 1, " User Info. Layer 1\n");
    count_down(ielength);
    if (extension_follows()) {
        octet_5a();
    }
    // By length alone, whether or not octet 5a was there.
    if (ielength != 0 && variant_is(PRI_TPH1856, PRI_NET5)) {
        rate_adaption(layer_1_protocol);
    }
}

void layer_2_octet() {
    extension_bit("  6:  1------- Extension Bit\n", "  6:  0------- Extension Bit\n");
    line("      -10----- Layer 2 Indent\n");
    field(5, 1, " User Info. Layer 2\n");
}

void layer_3_octet() {
    extension_bit("  7:  1------- Extension Bit\n", "  7:  0------- Extension Bit\n");
    line("      -11----- Layer 3 Indent\n");
    field(5, 1, " User Info. Layer 3\n");
}

// Only one group is decoded; what follows it in the element is left unread.
void layer_octet() {
    octet();
    switch (value & 0x60) {
        case 0x20: return layer_1_group();
        case 0x40: return layer_2_octet();
        case 0x60: return layer_3_octet();
        default: return;  // the indent stays on the line
    }
}

// Octet 5 with the texts of VN3. Any other layer octet is read without a line, and its indent stays.
void vn3_layer_octet() {
    octet();
    if ((value & 0x60) != 0x20) {
        return;
    }
    extension_bit("   5:  1-------  Extension Bit\n", "");
    line("       -01-----  Layer 1 Indent\n");
    field(5, 1, " Layer 1\n");
}

void octets_4a_to_7() {
    if (extension_follows()) {
        octet_4a();
        if (extension_follows()) {
            octet_4b();
        }
    }
    // The rate is taken from the last octet read, which may be 4a or 4b.
    if (variant_is(PRI_DMS100) && ielength != 0 && (value & 0x1F) == MULTIRATE) {
        octet_4_1();
    }
    if (ielength != 0) {
        layer_octet();
    }
}

}  // namespace

void bearer_capability() {
    title("BEARER CAPABILITY");
    length_line();
    octet_3();
    octet_4();
    if (has_octets_4a_to_7()) {
        octets_4a_to_7();
    } else if (variant_is(PRI_VN3) && ielength != 0) {
        vn3_layer_octet();
    }
}
