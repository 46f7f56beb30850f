#pragma once

// The decoders of the variable-length elements (Q.931 section 4.5), by family.
//
// When a decoder is called, the identifier is in `value`, the indent of the title line is written, and the length octet
// is unread. It trusts length and extension bits, and never looks at `msglen`:
// - If it leaves octets of its element unread, the next one is taken as an identifier.
// - If it reads more than its element, it reads the octets that follow, if necessary those of the next record.
//
// Octets are numbered as in Q.931. Bit 8 is the extension bit: octet 3a follows octet 3 when it is 0.

void bearer_capability();  // 0x04

void low_layer_compat();   // 0x7C
void high_layer_compat();  // 0x7D

void facility();               // 0x1C
void network_specific_fac();   // 0x20
void AdviceOfCharge();         // 0x01, NTT on primary rate
void user_to_user_facility();  // 0x7A

void connected_number();           // 0x0C
void calling_party_num();          // 0x6C
void called_party_num();           // 0x70
void original_called_num();        // 0x73
void redirecting_number();         // 0x74
void transit_network_selection();  // 0x78

void calling_party_subaddress();  // 0x6D
void called_party_subaddress();   // 0x71

void service_indicator();       // 0x01, 1TR6
void changestatus();            // 0x01, 4ESS/5ESS, NI2, NET5 and DMS100 on primary rate
void BlockChanId();             // 0x03, all but 1TR6
void channel_identification();  // 0x18
void restart_indicator();       // 0x79

void fun_cause();               // 0x08
void callstate();               // 0x14
void progress_indicator();      // 0x1E
void notification_indicator();  // 0x27
void signal_fun();              // 0x34

void callidentity();           // 0x10, 0x21
void terminal_capabilities();  // 0x24
void display();                // 0x28
void datetime();               // 0x29, and 0x03 in 1TR6
void information_req();        // 0x32
void feature_indication();     // 0x39
void service_profile_id();     // 0x3A, basic rate
void end_pointID();            // 0x3B, basic rate
void call_appearance_ie();     // 0x7B, basic rate
void useruser();               // 0x7E
