#include "q931/ie_dispatch.h"

#include "q931/codeset.h"
#include "q931/element_lines.h"
#include "q931/elements/elements.h"

namespace {

// An identifier without a decoder. From 0x80 on it is the whole element; below 0x80, length octet and contents follow.
void unknown_element() {
    value_text("  *Unknown IE: 0x", value, "\n");
    if (value >= 0x80) {
        return;
    }
    inputData(ielength);
    count_down(msglen);
    output(flag);
    value_text("  *Unknown IE Length(0x", ielength, ")\n");
    value_lines("  *Unknown IE Content(0x", 0xFF, ")\n");
    text("\n");
}

void identifier_01() {
    if (variant_is(PRI_1TR6)) {
        service_indicator();
    } else if (variant_is(PRI_4ESS, PRI_NI2, PRI_NET5, PRI_DMS100)) {
        changestatus();
    } else if (variant_is(PRI_NTT)) {
        AdviceOfCharge();
    }
}

void identifier_03() {
    if (variant_is(PRI_1TR6)) {
        datetime();
    } else {
        BlockChanId();
    }
}

void in_bri_trace(void (*decoder)()) {
    if (BRItrace != 0) {
        decoder();
    }
}

}  // namespace

void ie_id() {
    octet();
    switch (value) {
        case 0x01: return identifier_01();
        case 0x03: return identifier_03();
        case 0x04: return bearer_capability();
        case 0x08: return fun_cause();
        case 0x0C: return connected_number();
        case 0x10: return callidentity();
        case 0x14: return callstate();
        case 0x18: return channel_identification();
        case 0x1C: return facility();
        case 0x1E: return progress_indicator();
        case 0x20: return network_specific_fac();
        case 0x21: return callidentity();
        case 0x24: return terminal_capabilities();
        case 0x27: return notification_indicator();
        case 0x28: return display();
        case 0x29: return datetime();
        case 0x32: return information_req();
        case 0x34: return signal_fun();
        case 0x39: return feature_indication();
        case 0x3A: return in_bri_trace(service_profile_id);
        case 0x3B: return in_bri_trace(end_pointID);
        case 0x6C: return calling_party_num();
        case 0x6D: return calling_party_subaddress();
        case 0x70: return called_party_num();
        case 0x71: return called_party_subaddress();
        case 0x73: return original_called_num();
        case 0x74: return redirecting_number();
        case 0x78: return transit_network_selection();
        case 0x79: return restart_indicator();
        case 0x7A: return user_to_user_facility();
        case 0x7B: return in_bri_trace(call_appearance_ie);
        case 0x7C: return low_layer_compat();
        case 0x7D: return high_layer_compat();
        case 0x7E: return useruser();
        case 0x96: return codeset6();
        case 0x97: return codeset7();
        case 0x98: return non_locking_shift();
        case 0x9E: return non_locking_shift();
        case 0xA0: return moredata();
        case 0xA1: return sending_complete();
        case 0xB0: return congestion_level();
        default: return unknown_element();
    }
}
