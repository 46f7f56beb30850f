#include "q931/element_lines.h"
#include "q931/elements/elements.h"

namespace {

// There are three layouts: that of Q.931; the same with class and value on separate lines; that of 1TR6, with the cause
// value in octet 3 and the location in octet 4. Without a variant no field is shown.
bool cause_as_q931() {
    return variant_is(PRI_4ESS, PRI_NTT, PRI_TPH1856, PRI_NET5, PRI_NI2, BRI_5ESS, BRI_NTT, BRI_NET3, BRI_NI1, BRI_NI2);
}

bool cause_by_class() { return variant_is(PRI_DMS100, PRI_VN3, BRI_DMS100); }

// Octet 3. By class and in 1TR6, bit 8 has a line only when it is 1; without a variant it never has one. Where it has
// none, the indent stays on the line.
void cause_octet_3() {
    octet();
    if (cause_as_q931()) {
        extension_bit("  3:  1------- Extension Bit\n", "  3:  0------- Extension Bit\n");
    } else if (!variant_is(NO_VARIANT)) {
        extension_bit("  3:  1------- Extension Bit\n", "");
    }
    if (cause_as_q931() || cause_by_class()) {
        field(7, 6, " Coding Standard\n");
    } else if (variant_is(PRI_1TR6)) {
        field(7, 1, " Cause Value\n");
    }
    if (variant_is(PRI_VN3, PRI_TPH1856)) {
        line("      ---00--- Spare\n");
        field(3, 1, " Location\n");
    } else if (!variant_is(NO_VARIANT, PRI_1TR6)) {
        line("      ---0---- Spare\n");
        field(4, 1, " Location\n");
    }
    count_down(ielength);
}

void cause_octet_3a() {
    octet();
    extension_bit("  3a: 1------- Extension Bit\n", "");  // with bit 8 at 0 the indent stays on the line
    field(7, 1, " Recommendation\n");
    count_down(ielength);
}

void cause_octet_4() {
    octet();
    text("  4:  1------- Extension Bit\n");
    if (cause_as_q931()) {
        field(7, 1, " Cause Value\n");
    } else if (cause_by_class()) {
        field(7, 5, " Class\n");
        field(4, 1, " Value in the class\n");
    } else if (variant_is(PRI_1TR6)) {
        field(7, 6, " Coding Standard\n");
        line("      ---0---- Spare\n");
        field(4, 1, " Location\n");
    }
    count_down(ielength);
}

}  // namespace

// Cause (Q.931 section 4.5.12), identifier 0x08
//   octet 3:  ext | coding standard 7..6 | spare 5 | location 4..1
//   octet 3a: ext | recommendation 7..1 (NTT on primary rate and NET5)
//   octet 4:  ext | cause value 7..1
//   then diagnostics, numbered from 5
void fun_cause() {
    title("CAUSE");
    length_line();
    if (ielength == 0) {
        return;
    }
    cause_octet_3();
    if (ielength != 0 && extension_follows() && variant_is(PRI_NTT, PRI_NET5)) {
        cause_octet_3a();
    }
    if (ielength != 0) {
        cause_octet_4();
    }
    numbered_lines(5, " Diagnostic\n");
}

// Call state (Q.931 section 4.5.7), identifier 0x14
//   octet 3: coding standard 8..7 | call state value 6..1; one octet, whatever the length
void callstate() {
    title("CALL STATE");
    length_line();
    input();
    if (variant_is(PRI_VN3, PRI_TPH1856, PRI_NET5)) {
        field(8, 1, " Call State Value\n");
    } else if (!variant_is(NO_VARIANT, PRI_1TR6)) {
        field(8, 7, " Coding Standard\n");
        field(6, 1, " Call State Value\n");
    }
}

// Progress indicator (Q.931 section 4.5.23), identifier 0x1E; two octets, whatever the length
//   octet 3: ext | coding standard 7..6 | spare | location (TPH1856: spare 5..4, location 3..1)
//   octet 4: ext | progress description 7..1
void progress_indicator() {
    title("PROGRESS INDICATOR");
    length_line();
    octet();
    text("  3:  1------- Extension Bit\n");
    field(7, 6, " Coding Standard\n");
    if (variant_is(PRI_TPH1856)) {
        line("      ---00--- Spare\n");
        field(3, 1, " Location\n");
    } else {
        line("      ---0---- Spare\n");
        field(4, 1, " Location\n");
    }
    octet();
    text("  4:  1------- Extension Bit\n");
    field(7, 1, " Progress Description\n");
}

// Notification indicator (Q.931 section 4.5.22), identifier 0x27; one octet, whatever the length
//   octet 3: ext | notification description 7..1
void notification_indicator() {
    title("NOTIFICATION INDICATOR");
    length_line();
    octet();
    text("  3:  1------- Extension Bit\n");
    field(7, 1, " Notification description\n");
}

// Signal (Q.931 section 4.5.28), identifier 0x34; one octet, whatever the length
void signal_fun() {
    title("SIGNAL");
    length_line();
    octet();
    value_text("  3:     0x", value, "  Signal Value\n");
}
