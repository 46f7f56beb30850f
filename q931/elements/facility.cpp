#include "q931/element_lines.h"
#include "q931/elements/elements.h"

// Facility, identifier 0x1C
//   octet 3:  ext | spare 7..6 | service discriminator 5..1
//   octet 3a: ext | service identifier 7..1
//   octet 4 on: user data
void facility() {
    title("FACILITY");
    length_line();
    octet();
    extension_bit("  3:  1------- Extension Bit\n", "  3:  0------- Extension Bit\n");
    line("      -00----- Spare\n");
    field(5, 1, " Service Discriminator\n");
    count_down(ielength);
    if (extension_follows()) {
        octet();
        text(" 3a:  1------- Extension Bit\n");
        field(7, 1, " Service Identifier\n");
        count_down(ielength);
    }
    numbered_lines(4, " User Data\n");
}

namespace {

// Octets 3.1 to 3.N of the network identification: N octets, however long the element is.
void network_identification(std::int32_t count) {
    octet();
    text("3.1:  1------- Extension Bit\n");
    field(7, 5, " Type Of Network ID\n");
    field(4, 1, " Network ID Plan\n");
    count_down(ielength);
    for (std::int32_t position = 2; position <= count; ++position) {
        octet();
        if (position == 2) {
            text("3.2:  0------- Spare\n");
        } else {
            text(" 3.");
            decimal(position);
            text(":  0-------  Spare\n");
        }
        output(flag);
        value_text("             0x", value & 0x7F, " Network ID\n");
        count_down(ielength);
    }
}

// AT&T network services, by bits 5..1 of octet 4. For a code without a name, the line ends after the pattern.
std::string_view att_service(std::int32_t code) {
    switch (code) {
        case 1: return " SDN(including GSDN)\n";
        case 2: return " MEGACOM 800\n";
        case 3: return " MEGACOM\n";
        case 6: return " ACCUNET\n";
        case 8: return " Int'l MEGACOM 800\n";
        case 31: return " AT&T MultiQuest\n";
        default: return "\n";
    }
}

// AT&T, octet 4:    parameterized/binary 8 | expansion 7 | feature (0) or service (1) 6 | coding value 5..1
//       octet 5 on: spare 8 | parameterized field 7..1
// Octet 4 is read without an indent, so its first line has only one.
void att_facility() {
    input();
    field(8, 8, " Parameterized/Binary\n");
    line("      -1------ Expansion Bit\n");
    field(6, 6, " Feature/Service\n");
    field(5, 1, (value & 0x20) != 0 ? att_service(value & 0x1F) : " Fac. Coding Value\n");
    count_down(ielength);
    while (ielength > 0) {  // below 0 there is none
        octet();
        text("  5:  0------- Spare\n");
        field(7, 1, " Parameterized Field\n");
        count_down(ielength);
    }
}

// DMS100, octet 4:  ext | expansion 7 | service/feature 6 | binary facility coding 5..1
//         octet 4*: ext | service identifier 7..1, at most three; also read when the length is below 0
void dms100_facility() {
    octet();
    extension_bit(" 4:  1------- Extension Bit\n", " 4:  0------- Extension Bit\n");
    line("      -1------ Expansion\n");
    field(6, 6, " Service/Feature\n");
    field(5, 1, " Binary Facility Coding\n");
    count_down(ielength);
    for (std::int32_t i = 0; ielength != 0 && i < 3 && extension_follows(); ++i) {
        octet();
        extension_bit(" 4*:  1------- Extension Bit\n", " 4*:  0------- Extension Bit\n");
        field(7, 1, " Service Identifier\n");
        count_down(ielength);
    }
}

void other_facility() {
    octet();
    value_text("  4:      0x", value & 0x7F, " Netwrk Spec. Fac. Spec.\n");
    count_down(ielength);
    value_lines("             0x", 0x7F, " Netwrk Spec. Fac. Spec.\n");
}

// 1TR6: facility code, service, additional information, parameter fields. The first three lines have two indents.
void f1tr6_facility() {
    octet();
    field(8, 1, " Facility Code\n");
    count_down(ielength);
    octet();
    field(8, 1, " Service\n");
    count_down(ielength);
    if (ielength != 0) {  // also below 0
        octet();
        field(8, 1, " Additional Info.\n");
        count_down(ielength);
        value_lines("          0x", 0xFF, "  Parameter Field\n");
    }
}

}  // namespace

// Network-specific facilities (Q.931 section 4.5.21), identifier 0x20; national facilities in VN3
//   octet 3: length of network identification; then so many octets; then the facility in the layout of the network
// VN3 and 1TR6 show the length and have no network identification. NTT on basic rate ends after it.
void network_specific_fac() {
    title(variant_is(PRI_VN3) ? "NATIONAL FAC." : "NETWORK SPEC. FAC.");
    length_line();
    octet();
    const std::int32_t network_id_length = value;
    value_text("  3:     0x", value, "  Length Of Network ID\n");
    count_down(ielength);
    if (variant_is(PRI_VN3)) {
        return value_lines("          0x", 0xFF, "  Facility specification\n");
    }
    if (variant_is(PRI_1TR6)) {
        return f1tr6_facility();
    }
    if (variant_is(NO_VARIANT, BRI_NTT)) {
        return;
    }
    if (network_id_length != 0) {
        network_identification(network_id_length);
    }
    if (variant_is(PRI_4ESS, PRI_NI2)) {
        att_facility();
    } else if (variant_is(PRI_DMS100)) {
        dms100_facility();
    } else {
        other_facility();
    }
}

// Advice of charge (NTT), identifier 0x01
//   octet 3: ext | reserved 7..5 | bit 4 not shown | indication type 3..1
//   octet 4 on: charging data
void AdviceOfCharge() {
    title("ADVICE OF CHARGE");
    length_line();
    octet();
    text("  3:  1------- Extension Bit\n");
    line("      -000---- Reserved\n");
    field(3, 1, " Indication Type\n");
    count_down(ielength);
    while (ielength > 0) {  // below 0 there is none
        input();
        field(8, 1, " Charging data\n");
        count_down(ielength);
    }
}

// User-to-user facility, identifier 0x7A
//   octet 3: user protocol discriminator (its line has two indents); then diagnostics, numbered from 5
void user_to_user_facility() {
    title("USER-TO-USER FAC.");
    length_line();
    octet();
    field(8, 1, " User protocol discriminator\n");
    count_down(ielength);
    numbered_lines(5, " Diagnostic\n");
}
