#include "q931/element_lines.h"
#include "q931/elements/elements.h"

// Party subaddresses (Q.931 sections 4.5.9 and 4.5.11). The two elements test for different lists of variants.
//   octet 3: ext | type of subaddress 7..5 | odd/even indicator 4 | spare 3..1
//   octet 4 on: subaddress information

// Called party subaddress, identifier 0x71
void called_party_subaddress() {
    title("CALLED PARTY SUBADD");
    length_line();
    octet();
    text("  3:  1------- Extension Bit\n");
    field(7, 5, " Type of Subaddress\n");
    if (variant_is(PRI_4ESS, PRI_TPH1856, PRI_NET5, PRI_NI2, BRI_5ESS, BRI_DMS100, BRI_NTT, BRI_NET3, BRI_NI1,
                   BRI_NI2)) {
        field(4, 4, " Odd/Even Indicator\n");
        line("      -----000 Spare\n");
    } else if (variant_is(PRI_VN3)) {
        line("      ----0000 Spare\n");
    }
    count_down(ielength);
    value_lines("          0x", 0xFF, " Subaddress Info.\n");
}

namespace {

// Extension line of octet 3. Its indent is already written; if there is no such line, the indent stays.
void calling_extension_line() {
    if (variant_is(PRI_4ESS, PRI_NTT, PRI_NET5, PRI_NI2, BRI_5ESS, BRI_DMS100, BRI_NI2)) {
        extension_bit("  3:  1------- Extension Bit\n", "  3:  0------- Extension Bit\n");
    } else if (variant_is(PRI_VN3, PRI_TPH1856, BRI_NI1)) {
        extension_bit("  3:  1------- Extension Bit\n", "");
    }
}

// One information octet. Its indent is already written; DMS100 on primary rate, 1TR6 and no variant show nothing more.
void calling_information() {
    if (variant_is(PRI_4ESS, PRI_NTT, PRI_TPH1856, PRI_NET5, PRI_NI2, BRI_5ESS, BRI_DMS100, BRI_NTT, BRI_NET3, BRI_NI1,
                   BRI_NI2)) {
        value_text("          0x", value, " Subaddress Info.\n");
    } else if (variant_is(PRI_VN3)) {
        text("      0------- Spare\n");
        field(7, 1, "          0x");
        hex(value);
        text(" Sub-address digits.\n");
    }
}

}  // namespace

// Calling party subaddress, identifier 0x6D
void calling_party_subaddress() {
    title("CALLING PARTY SUBAD");
    length_line();
    octet();
    calling_extension_line();
    field(7, 5, " Type of Subaddress\n");
    if (variant_is(PRI_4ESS, PRI_NTT, PRI_TPH1856, PRI_NET5, PRI_NI2, BRI_5ESS, BRI_DMS100, BRI_NTT, BRI_NET3,
                   BRI_NI2)) {
        field(4, 4, " Odd/Even Indicator\n");
        line("      -----000 Spare\n");
    } else if (variant_is(PRI_VN3, BRI_NI1)) {
        line("      ----0000 Spare\n");
    }
    count_down(ielength);
    for (std::int32_t i = 0; i < ielength; ++i) {
        octet();
        calling_information();
    }
}
