#include "calls/q850.h"

std::string_view cause_words(std::uint8_t cause) {
    switch (cause) {
        case 1: return "unallocated (unassigned) number";
        case 2: return "no route to specified transit network";
        case 3: return "no route to destination";
        case 4: return "send special information tone";
        case 5: return "misdialled trunk prefix";
        case 6: return "channel unacceptable";
        case 7: return "call awarded and being delivered in an established channel";
        case 8: return "preemption";
        case 9: return "preemption - circuit reserved for reuse";
        case 14: return "QoR: ported number";
        case 16: return "normal call clearing";
        case 17: return "user busy";
        case 18: return "no user responding";
        case 19: return "no answer from user (user alerted)";
        case 20: return "subscriber absent";
        case 21: return "call rejected";
        case 22: return "number changed";
        case 23: return "redirection to new destination";
        case 24: return "call rejected due to feature at the destination";
        case 25: return "exchange routing error";
        case 26: return "non-selected user clearing";
        case 27: return "destination out of order";
        case 28: return "invalid number format (address incomplete)";
        case 29: return "facility rejected";
        case 30: return "response to STATUS ENQUIRY";
        case 31: return "normal, unspecified";
        case 34: return "no circuit/channel available";
        case 38: return "network out of order";
        case 39: return "permanent frame mode connection out of service";
        case 40: return "permanent frame mode connection operational";
        case 41: return "temporary failure";
        case 42: return "switching equipment congestion";
        case 43: return "access information discarded";
        case 44: return "requested circuit/channel not available";
        case 46: return "precedence call blocked";
        case 47: return "resource unavailable, unspecified";
        case 49: return "quality of service not available";
        case 50: return "requested facility not subscribed";
        case 53: return "outgoing calls barred within CUG";
        case 55: return "incoming calls barred within CUG";
        case 57: return "bearer capability not authorized";
        case 58: return "bearer capability not presently available";
        case 62: return "inconsistency in designated outgoing access information and subscriber class";
        case 63: return "service or option not available, unspecified";
        case 65: return "bearer capability not implemented";
        case 66: return "channel type not implemented";
        case 69: return "requested facility not implemented";
        case 70: return "only restricted digital information bearer capability is available";
        case 79: return "service or option not implemented, unspecified";
        case 81: return "invalid call reference value";
        case 82: return "identified channel does not exist";
        case 83: return "a suspended call exists, but this call identity does not";
        case 84: return "call identity in use";
        case 85: return "no call suspended";
        case 86: return "call having the requested call identity has been cleared";
        case 87: return "user not member of CUG";
        case 88: return "incompatible destination";
        case 90: return "non-existent CUG";
        case 91: return "invalid transit network selection";
        case 95: return "invalid message, unspecified";
        case 96: return "mandatory information element is missing";
        case 97: return "message type non-existent or not implemented";
        case 98: return "message not compatible with call state or message type non-existent or not implemented";
        case 99: return "information element/parameter non-existent or not implemented";
        case 100: return "invalid information element contents";
        case 101: return "message not compatible with call state";
        case 102: return "recovery on timer expiry";
        case 103: return "parameter non-existent or not implemented, passed on";
        case 110: return "message with unrecognized parameter, discarded";
        case 111: return "protocol error, unspecified";
        case 127: return "interworking, unspecified";
        default: return {};
    }
}

std::string_view location_words(std::uint8_t location) {
    switch (location) {
        case 0: return "user";
        case 1: return "private network serving the local user";
        case 2: return "public network serving the local user";
        case 3: return "transit network";
        case 4: return "public network serving the remote user";
        case 5: return "private network serving the remote user";
        case 7: return "international network";
        case 10: return "network beyond interworking point";
        default: return {};
    }
}
