#include "q931/element_lines.h"
#include "q931/elements/elements.h"

// Call identity (Q.931 section 4.5.6), identifiers 0x10 and 0x21
void callidentity() {
    title("CALL IDENTITY");
    length_line();
    numbered_lines(3, " Call Identity\n");
}

// Terminal capabilities, identifier 0x24; one octet, whatever the length
//   octet 3: coding standard 8..7 | capability description 6..1
void terminal_capabilities() {
    title("TERMINAL CAPABILITIES");
    length_line();
    input();
    field(8, 7, " Coding Standard\n");
    field(6, 1, " Capability description\n");
}

// Display (Q.931 section 4.5.16), identifier 0x28
//   octet 3: ext | associated information 7..5 | display type 4..1 (DMS100 on primary rate; elsewhere the text begins
//   here)
void display() {
    title("DISPLAY");
    length_line();
    if (variant_is(PRI_DMS100)) {
        octet();
        text("  3:  1------- Extension Bit\n");
        field(7, 5, " Associated Info.\n");
        field(4, 1, " Display Type\n");
        count_down(ielength);
    }
    character_line("  Display Information\n");
}

// Date/time (Q.931 section 4.5.15), identifier 0x29, and 0x03 in 1TR6; octets as they are, binary ones too
void datetime() {
    title("DATE/TIME");
    length_line();
    character_line("\n");
}

// Information request, identifier 0x32; octet 3 whatever the length
//   octet 3:  ext | information request indicator 7 | type of information 6..1
//   octet 3a: ext | information specification 7..1
void information_req() {
    title("INFORMATION_REQ");
    length_line();
    octet();
    extension_bit("  3:  1------- Extension Bit\n", "  3:  0------- Extension Bit\n");
    field(7, 7, " Info. Req. Ind.\n");
    field(6, 1, " Type of Information\n");
    if (extension_follows()) {
        octet();
        text(" 3a:  1------- Extension Bit\n");
        field(7, 1, " Information Spec.\n");
    }
}

// Feature indication, identifier 0x39; octets 3 and 4 whatever the length
//   octet 3:  ext | feature identifier number 7..1, continued in octet 3a
//   octet 4:  spare 8..5 | status indicator 4..1
void feature_indication() {
    title("FEATURE INDICATION");
    length_line();
    octet();
    extension_bit("  3:  1------- Extension Bit\n", "  3:  0------- Extension Bit\n");
    field(7, 1, " Feature Id. #\n");
    if (extension_follows()) {
        octet();
        text(" 3a:  1------- Extension Bit\n");
        field(7, 1, " Feature Id. #(cont)\n");
    }
    octet();
    text("  4:  0000---- Spare\n");
    field(4, 1, " Status Ind.\n");
}

// Service profile identification, identifier 0x3A; only its first octet is read
void service_profile_id() {
    title("SERVICE_PROFILE_ID");
    length_line();
    if (ielength == 0) {
        return;
    }
    octet();
    text("  3:  0------- Spare\n");
    field(7, 1, " SPID\n");
}

// Endpoint identifier, identifier 0x3B
//   octet 3: ext | user service identifier 7..1
//   octet 4: ext | interpreter 7..6 | terminal identifier 5..1
void end_pointID() {
    title("ENDPOINT IDENTIFIER");
    length_line();
    if (ielength == 0) {
        return;
    }
    octet();
    text("  3:  1------- Extension Bit\n");
    field(7, 1, " User Service ID\n");
    if (ielength == 1) {
        return;
    }
    octet();
    text("  4:  1------- Extension Bit\n");
    field(7, 6, " Interpreter\n");
    field(5, 1, " Terminal ID\n");
}

// Call appearance, identifier 0x7B; octet 4 by the length alone, whatever the extension bit of octet 3
void call_appearance_ie() {
    title("CALL APPEARANCE");
    length_line();
    if (ielength == 0) {
        return;
    }
    octet();
    extension_bit("  3:  1------- Extension Bit\n", "  3:  0------- Extension Bit\n");
    field(7, 1, " Call Appearance ID\n");
    if (ielength == 1) {
        return;
    }
    octet();
    text("  4:  1------- Extension Bit\n");
    field(7, 1, " Call Appearance ID\n");
}

// User-user (Q.931 section 4.5.30), identifier 0x7E; octet 3, the protocol discriminator, whatever the length
void useruser() {
    title("USER-USER");
    length_line();
    octet();
    value_text("  3:      0x", value, " Protocol Discrim.\n");
    count_down(ielength);
    value_lines("          0x", 0xFF, " User Information\n");
}
