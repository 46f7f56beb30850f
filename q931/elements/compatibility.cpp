#include "q931/element_lines.h"
#include "q931/elements/elements.h"

namespace {

constexpr std::int32_t V110 = 0x01;
constexpr std::int32_t V120 = 0x08;

// Low layer compatibility, octets 3 to 7. The extension bits decide which are read, in the same way for all variants.

void llc_octet_3() {
    octet();
    extension_bit("  3:  1------- Extension Bit\n", "  3:  0------- Extension Bit\n");
    field(7, 6, " Coding Stabdard\n");
    field(5, 1, " Info. Transfer Cap.\n");
    count_down(ielength);
}

void llc_octet_3a() {
    octet();
    text(" 3a:  1------- Extension Bit\n");
    field(7, 7, " Negotiation Indicator\n");
    line("      --000000\n");
    count_down(ielength);
}

void llc_octet_4() {
    octet();
    extension_bit("  4:  1------- Extension Bit\n", "  4:  0------- Extension Bit\n");
    field(7, 6, " Transfer Mode\n");
    field(5, 1, " Info. Transfer Rate\n");
    count_down(ielength);
}

void llc_octet_4a() {
    octet();
    extension_bit(" 4a:  1------- Extension Bit\n", " 4a:  0------- Extension Bit\n");
    field(7, 5, "  Structure\n");
    field(4, 3, " Configuration\n");
    field(2, 1, " Establishment\n");
    count_down(ielength);
}

void llc_octet_4b() {
    octet();
    text(" 4b:  1------- Extension Bit\n");
    field(7, 6, " Symmetry\n");
    field(5, 1, " Info. Transfer Rate\n");
    count_down(ielength);
}

void llc_octet_5a() {
    octet();
    extension_bit(" 5a:  1------- Extension Bit\n", " 5a:  0------- Extension Bit\n");
    field(7, 7, " Synchr./Asynchr.\n");
    line("      --0----- Negotiation Spare\n");
    field(5, 1, " User Rate\n");
}

void llc_octet_5b_v110() {
    octet();
    extension_bit(" 5b:  1------- Extension Bit\n", " 5b:  0------- Extension Bit\n");
    field(7, 6, " Intermediate Rate\n");
    field(5, 5, " NIC on Tx\n");
    field(4, 4, " NIC on Rx\n");
    field(3, 3, " Flow-Control on Tx\n");
    field(2, 2, " Flow-Control on Rx\n");
    line("      -------0 Spare\n");
}

void llc_octet_5b_v120() {
    octet();
    text(" 5d:  1------- Extension Bit\n");  // with the tag of octet 5d
    field(7, 7, " Header/No Header\n");
    field(6, 6, " Multiple Frame Supp.\n");
    field(5, 5, " Mode of Operation\n");
    field(4, 4, " LLI Negotiation\n");
    field(3, 3, " Assignor/Assignee\n");
    field(2, 2, " In Band/Out Band\n");
    line("      -------0 Spare\n");
}

void llc_octet_5c() {
    octet();
    extension_bit(" 5c:  1------- Extension Bit\n", " 5c:  0------- Extension Bit\n");
    field(7, 6, " Number of stop bits\n");
    field(5, 4, " Number of data bits\n");
    field(3, 1, " Parity\n");
}

void llc_octet_5d() {
    octet();
    text(" 5d:  1------- Extension Bit\n");
    field(7, 7, " Duplex Mode\n");
    field(6, 1, " Modem Type\n");
}

void llc_layer_1_group() {
    const std::int32_t layer_1_protocol = value & 0x1F;
    output(flag);
    extension_bit("  5:  1------- Extension Bit\n", "  5:  0------- Extension Bit\n");
    line("      -01----- Layer 1 Indent\n");
    field(5, 1, " User Info. Layer 1\n");
    if (!extension_follows()) {
        return;
    }
    llc_octet_5a();
    if (!extension_follows()) {
        return;
    }
    if (layer_1_protocol == V110) {
        llc_octet_5b_v110();
    } else if (layer_1_protocol == V120) {
        llc_octet_5b_v120();
    }
    if (!extension_follows()) {  // of octet 5b, or of 5a where there is no 5b
        return;
    }
    llc_octet_5c();
    if (extension_follows()) {
        llc_octet_5d();
    }
}

// Octets 6 and 6a, with the tags 5 and 5a; 6a is always read.
void llc_layer_2_group() {
    line("  5:  1------- Extension Bit\n");
    line("      -10----- Layer 2 Indent\n");
    field(5, 1, "  User Info. Layer 2\n");
    octet();
    text(" 5a:  1------- Extension Bit\n");
    field(7, 1, " Layer 2 Protocol Info\n");
}

// Octets 7 and 7a, in the same way.
void llc_layer_3_group() {
    line("  5:  1------- Extension Bit\n");
    line("      -11----- Layer 3 Indent\n");
    field(5, 1, " User Info. Layer 3\n");
    octet();
    text(" 5a:  1------- Extension Bit\n");
    field(7, 1, " Layer 3 Protocol Info\n");
}

// Only one group is decoded. The group writes the indent of this octet; so an octet that begins no group leaves no
// indent on the line, unlike in the bearer capability.
void llc_layer_octet() {
    input();
    switch (value & 0x60) {
        case 0x20: return llc_layer_1_group();
        case 0x40: return llc_layer_2_group();
        case 0x60: return llc_layer_3_group();
        default: return;
    }
}

// High layer compatibility, octets 4 and 4a.
void hlc_characteristics() {
    extension_bit("  4:  1------- Extension Bit\n", "  4:  0------- Extension Bit\n");
    output(flag);
    value_text("          0x", value & 0x7F, " High Layer Char. ID\n");
    if (extension_follows()) {
        octet();
        text("  4a:  1-------  Extension Bit\n");
        output(flag);
        value_text("          0x", value & 0x7F, " Ext. High Layer Char\n");
    }
}

void hlc_teleservice() {
    extension_bit("  4:  1------- Extension Bit\n", "");  // with bit 8 at 0 the indent stays on the line
    field(7, 1, " Teleservice \n");
}

}  // namespace

// Low layer compatibility (Q.931 section 4.5.19), identifier 0x7C
//   octet 3:  ext | coding standard 7..6 | information transfer capability 5..1
//   octet 3a: ext | negotiation indicator 7 | spare 6..1
//   octet 4 on: the octets of the bearer capability with other labels, and other rules: 5b to 5d by extension bit
//   in every variant, a second octet after 6 and 7, no octet 4.1
void low_layer_compat() {
    title("LOW LAYER COMP.");
    length_line();
    llc_octet_3();
    if (extension_follows()) {
        llc_octet_3a();
    }
    llc_octet_4();
    if (extension_follows()) {
        llc_octet_4a();
        if (extension_follows()) {
            llc_octet_4b();
        }
    }
    if (ielength != 0) {
        llc_layer_octet();
    }
}

// High layer compatibility (Q.931 section 4.5.17), identifier 0x7D
//   octet 3:  ext | coding standard 7..6 | interpretation 5..3 | presentation method 2..1
//   octet 4:  ext | high layer characteristics identification 7..1
//   octet 4a: ext | extended high layer characteristics identification 7..1
void high_layer_compat() {
    title("HIGH LAYER COMP.");
    length_line();
    octet();
    text("  3:  1------- Extension Bit\n");
    field(7, 6, " Coding Standard\n");
    field(5, 3, " Interpretation\n");
    field(2, 1, " Presentation Method\n");
    octet();  // under the other variants octet 4 is read without a line, and its indent stays
    if (variant_is(PRI_4ESS, PRI_TPH1856, PRI_NI2, BRI_5ESS, BRI_DMS100, BRI_NTT, BRI_NET3, BRI_NI1, BRI_NI2)) {
        hlc_characteristics();
    } else if (variant_is(PRI_VN3)) {
        hlc_teleservice();
    }
}
