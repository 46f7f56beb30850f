#include "q931/element_lines.h"
#include "q931/elements/elements.h"

// Party numbers (Q.931 sections 4.5.8 and 4.5.10)
//   octet 3:  ext | type of number 7..5 | numbering plan 4..1
//   octet 3a: ext | presentation indicator 7..6 | spare 5..3 | screening indicator 2..1
//   octet 3b: ext | spare 7..5 | reason for redirection 4..1
//   octet 3c: ext | CFNR indicator 7 | spare 6..4 | redirection counter 3..1
//   octet 4 on: the digits
// Which of octets 3a to 3c are possible depends on the element, and for two elements on the variant. A possible octet
// is read when the extension bit before it says so, whatever the length.

// Calling party number, identifier 0x6C
void calling_party_num() {
    if (variant_is(PRI_1TR6)) {
        title("ORIGINATION ADDRESS");
    } else if (!variant_is(NO_VARIANT)) {  // without a title, the length line continues the indent of the title
        title("CALLING PARTY NUM");
    }
    length_line();
    if (ielength == 0) {
        return;
    }
    octet();
    extension_bit("  3:  1------- Extension Bit\n", "  3:  0------- Extension Bit\n");
    field(7, 5, " Type Of Number\n");
    field(4, 1, " Numbering Plan ID\n");
    count_down(ielength);
    if (extension_follows() && !variant_is(NO_VARIANT, PRI_1TR6)) {
        octet();
        text(" 3a:  1------- Extension Bit\n");
        field(7, 6, " Presentation Indicator\n");
        if (variant_is(PRI_TPH1856)) {
            line("      ---0---- Spare\n");
            line("      ----00-- Reserved\n");
        } else {
            line("      ---000-- Spare\n");
        }
        field(2, 1, " Screening Indicator\n");
        count_down(ielength);
    }
    character_line("  Number Digit(s)\n");
}

// Called party number, identifier 0x70: no octet 3a, and octet 3 is read whatever the length
void called_party_num() {
    if (variant_is(PRI_1TR6)) {
        title("DESTINATION ADDRESS");
    } else if (!variant_is(NO_VARIANT)) {  // without a title, the length line continues the indent of the title
        title("CALLED PARTY NUM");
    }
    length_line();
    octet();
    text("  3:  1------- Extension Bit\n");
    field(7, 5, " Type of Number\n");
    field(4, 1, " Numbering plan ID\n");
    count_down(ielength);
    character_line("  Number Digit(s)\n");
}

// Connected number, identifier 0x0C: octet 3a in DMS100 only; the digits are always numbered from 4
void connected_number() {
    title("CONNECTED NUMBER");
    length_line();
    octet();
    extension_bit("  3:  1------- Extension Bit\n", "  3:  0------- Extension Bit\n");
    field(7, 5, " Type of Number\n");
    field(4, 1, " Numbering Plan Identification\n");
    count_down(ielength);
    if (extension_follows() && variant_is(PRI_DMS100)) {
        octet();
        text("3.1:  1------- Extension Bit\n");
        field(7, 6, " Presentation Indicator\n");
        line("      ---000-- Spare\n");
        field(2, 1, " Screening Indicator\n");
        count_down(ielength);
    }
    for (std::int32_t i = 0; i < ielength; ++i) {
        octet();
        text("  ");
        decimal(i + 4);
        value_text(":        0x", value & 0x7F, " Number Digit(s)\n");
    }
}

namespace {

void original_called_3a() {
    octet();
    extension_bit(" 3a:  1------- Extension Bit\n", " 3a:  0------- Extension Bit\n");
    field(7, 6, " Presentation Indicator\n");
    line("      ---000-- Spare\n");
    field(2, 1, " Screening Indicator\n");
    count_down(ielength);
}

void original_called_3b() {
    octet();
    extension_bit(" 3b:  1------- Extension Bit\n", " 3b:  0------- Extension Bit\n");
    line("      -000---- Spare\n");
    field(4, 1, " Original Redirection Reason\n");
    count_down(ielength);
}

void original_called_3c() {
    octet();
    text(" 3c:  1------- Extension Bit\n");
    field(7, 7, " CFNR Indicator\n");
    line("      --000--- Spare\n");
    field(3, 1, " Redirection Counter\n");
    count_down(ielength);
}

}  // namespace

// Original called number, identifier 0x73
void original_called_num() {
    title("ORIGINAL CALLED NUM");
    length_line();
    if (ielength == 0) {
        return;
    }
    octet();
    extension_bit("  3:  1------- Extension Bit\n", "  3:  0------- Extension Bit\n");
    field(7, 5, " Type Of Number\n");
    field(4, 1, " Numbering Plan ID\n");
    count_down(ielength);
    if (extension_follows()) {
        original_called_3a();
        if (extension_follows()) {
            original_called_3b();
            if (extension_follows()) {
                original_called_3c();
            }
        }
    }
    character_line("  Number Digit(s)\n");
}

// Redirecting number, identifier 0x74
void redirecting_number() {
    title("REDIRECTING NUMBER");
    length_line();
    octet();
    extension_bit("  3:  1------- Extension Bit\n", "  3:  0------- Extension Bit\n");
    field(7, 5, " Type of Number\n");
    field(4, 1, " Numbering Plan ID\n");
    count_down(ielength);
    if (extension_follows()) {
        octet();
        extension_bit(" 3a:  1-------  Extension Bit\n", " 3a:  0-------  Extension Bit\n");
        field(7, 6, " Presentation Indicator\n");
        line("      ---000-- Spare\n");
        field(2, 1, " Screening Indicator\n");
        count_down(ielength);
        if (extension_follows()) {
            octet();
            text(" 3b:  1------- Extension Bit\n");
            line("      -000---- Spare\n");
            field(4, 1, " Reason For Redirect\n");
            count_down(ielength);
        }
    }
    value_lines("        0x", 0x7F, " Number Digits\n");
}

// Transit network selection (Q.931 section 4.5.29), identifier 0x78
//   octet 3: ext | type of network identification 7..5 | network identification plan 4..1
//   octet 4 on: the network identification
void transit_network_selection() {
    title("TRANSIT NTWRK SEL.");
    length_line();
    octet();
    text("  3:  1------- Extension Bit\n");
    field(7, 5, " Type Of Network ID\n");
    field(4, 1, " Network ID Plan\n");
    count_down(ielength);
    value_lines("          0x", 0x7F, " Network ID\n");
}
