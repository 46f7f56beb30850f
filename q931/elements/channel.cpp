#include "q931/element_lines.h"
#include "q931/elements/elements.h"

namespace {

// An interface identifier octet, 3.1.
void interface_identifier() {
    octet();
    extension_bit("3.1:  1------- Extension Bit\n", "3.1:  0------- Extension Bit\n");
    field(7, 1, " Interface Identifier\n");
    count_down(ielength);
}

// Octets 3.1, 3.2 and the channel octets, which carry the tag 4.
void channel_octets(bool interface_present) {
    if (interface_present && ielength != 0) {
        do {
            interface_identifier();
        } while (ielength > 0 && extension_follows());
    }
    if (ielength != 0) {  // also below 0
        octet();
        text("3.2:  1------- Extension Bit\n");
        field(7, 6, " Coding Standard\n");
        field(5, 5, " Number Map\n");
        field(4, 1, " Channel/Map Element\n");
        count_down(ielength);
    }
    if (ielength != 0) {  // also below 0: then one octet is read
        do {
            octet();
            extension_bit("  4:  1------- Extension Bit\n", "  4:  0------- Extension Bit\n");
            field(7, 1, " Channel Number/Slot Map\n");
            count_down(ielength);
        } while (ielength > 0);
    }
}

// The same octets in VN3, 1TR6 and TPH1856: no interface identifier, tags 4 and 5.
void ccitt_channel_octets() {
    if (ielength != 0) {
        octet();
        text("  4:  1------- Extension Bit\n");
        field(7, 6, " CCITT Coding Standard\n");
        field(5, 5, " Number Map\n");
        field(4, 1, " Channel type: B-Channel\n");
        count_down(ielength);
    }
    if (ielength != 0) {  // also below 0: then one octet is read
        do {
            octet();
            extension_bit("  5:  1------- Extension Bit\n", "  5:  0------- Extension Bit\n");
            field(7, 1, " Channel Number/Slot Map\n");
            count_down(ielength);
        } while (ielength > 0);
    }
}

}  // namespace

// Channel identification (Q.931 section 4.5.13), identifier 0x18
//   octet 3:   ext | interface identifier present 7 | interface type 6 | spare 5 | preferred/exclusive 4 |
//              D-channel indicator 3 | information channel selection 2..1
//   octet 3.1: ext | interface identifier 7..1, repeated while ext is 0
//   octet 3.2: ext | coding standard 7..6 | number/map 5 | channel type or map element type 4..1
//   octet 3.3: ext | channel number or slot map 7..1
void channel_identification() {
    title("CHANNEL ID");
    length_line();
    octet();
    const bool interface_present = (value & 0x40) != 0;
    text("  3:  1------- Extension Bit\n");
    field(7, 7, " Interface ID Present\n");
    field(6, 6, " Interface Type\n");
    line("      ---0---- Spare\n");
    field(4, 4, " Preferred/Exclusive\n");
    field(3, 3, " D-Channel Indicator\n");
    field(2, 1, " Info. Channel Sel.\n");
    count_down(ielength);
    if (variant_is(PRI_VN3, PRI_1TR6, PRI_TPH1856)) {
        ccitt_channel_octets();
    } else if (!variant_is(NO_VARIANT)) {
        channel_octets(interface_present);
    }
}

// Blocking channel identification, identifier 0x03
//   octet 3: ext | interface identifier present (here when 0) 7 | interface type 6 | reserved 5..3 |
//            information channel selection 2..1
//   octets 3.1 and 3.2 as above; octet 3.3 on: slot map 8..1
void BlockChanId() {
    title("BLOCKING CHANNEL ID");
    length_line();
    octet();
    text("  3:  1------- Extension Bit\n");
    field(7, 7, " Interface ID Present\n");
    field(6, 6, " Interface Type\n");
    line("      ---000-- Reserved\n");
    field(2, 1, " Info. Channel Sel.\n");
    count_down(ielength);
    if (ielength != 0 && (value & 0x40) == 0) {
        do {
            interface_identifier();
        } while (extension_follows());  // whatever length is left
    }
    if (ielength != 0) {  // also below 0
        octet();
        text("3.2:  1------- Extension Bit\n");
        field(7, 6, " Coding Standard\n");
        field(5, 5, " Map\n");
        field(4, 1, " Map Element\n");
        count_down(ielength);
    }
    while (ielength > 0) {
        input();
        field(8, 1, " Slot Map\n");
        count_down(ielength);
    }
}

// Change status, identifier 0x01
//   octet 3: ext | preference 7 | spare 6..4 | new status 3..1; further octets are not read
void changestatus() {
    title("CHANGE STATUS");
    length_line();
    octet();
    text("  3:  1------- Extension Bit\n");
    field(7, 7, " Preference\n");
    line("      --000--- Spare\n");
    field(3, 1, " New Status\n");
}

// Service indicator (1TR6), identifier 0x01: service, then additional information
void service_indicator() {
    title("SERVICE INDICATOR");
    length_line();
    input();
    field(8, 1, " Service\n");
    count_down(ielength);
    for (std::int32_t i = 0; i < ielength; ++i) {
        input();
        field(8, 1, " Additional Information\n");
    }
}

// Restart indicator (Q.931 section 4.5.25), identifier 0x79
//   octet 3: ext | spare 7..4 | class 3..1; further octets are not read
void restart_indicator() {
    title("RESTART INDICATOR");
    length_line();
    octet();
    text("  3:  1------- Extension Bit\n");
    line("      -0000--- Spare\n");
    field(3, 1, " Class\n");
}
