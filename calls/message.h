#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// What a frame of a trace says, as values: taken from the octets of one record, each length checked against that
// record.

// What a message does to a call, whatever its protocol calls it.
enum class Step : std::uint8_t {
    OTHER,  // it belongs to a call, and does nothing that the list of calls tells
    SETUP,
    REGISTER,     // opens a signalling connection that is no call (Q.932)
    INFORMATION,  // more digits
    ALERTING,
    CONNECT,
    CONNECT_ACKNOWLEDGE,
    RESUME,
    RESUME_ACKNOWLEDGE,
    RESUME_REJECT,
    SUSPEND_ACKNOWLEDGE,
    DISCONNECT,  // of DASS2 and DPNSS: every clearing message
    RELEASE,
    RELEASE_COMPLETE,
    STATUS,
    STATUS_ENQUIRY,
    RESTART,
};

// What a cause means for the result of a call.
enum class Reason : std::uint8_t { NORMAL, BUSY, NO_ANSWER, REJECTED, FAILURE };

struct Cause {
    std::uint8_t value;      // 0..127, DASS2 and DPNSS 0..255
    std::string_view words;  // of constant text; empty where Q.850 has none, or the cause is not one of its
    std::optional<std::uint8_t> location;  // 0..15; DASS2 and DPNSS have none
    Reason reason;
};

// A frame: its head, and what it says when it holds a message of layer 3.
struct Message {
    // Known beside the octets
    bool transmitted = false;
    std::optional<std::uint8_t> line;
    std::optional<std::int64_t> elapsed;
    std::uint64_t at = 0;

    // Layer 2
    std::uint8_t sapi = 0;                    // 0 with DASS2 and DPNSS
    std::optional<std::uint8_t> tei;          // none with DASS2 and DPNSS
    bool from_network = false;                // by the command/response bit, when it holds a message
    bool establishes = false;                 // SABME: frames are numbered anew
    std::optional<std::uint8_t> send_number;  // N(S) of an information frame, 0..127; DASS2 and DPNSS: the sequence bit

    // All frames
    std::string name;         // of the message, else of the frame, in the words of the report; TEI management by Q.921
    bool damaged = false;     // it ends within its head or an element; the values are those that it holds whole
    bool is_message = false;  // it holds a message: what follows is set

    // Layer 3
    std::string reference;   // call reference without its flag bit, as "01" or "002a"; empty when that is empty;
                             // DASS2 and DPNSS: the timeslot of any frame as in the report, as "33Virtual"
    bool by_sender = false;  // Q.931: the side that sent this gave the call reference
    bool of_call = false;    // it belongs to a call: no maintenance, and a call reference other than empty and 0
    Step step = Step::OTHER;
    std::uint64_t content = 0;   // hash of the octets of the message (DASS2 and DPNSS: of the frame)
    std::string from;            // calling number, the first
    std::string to;              // called number and keypad digits, in their order
    std::string selection;       // DASS2 and DPNSS: selection field; from and to are what it holds by itself
    std::string channel;         // "B1", "7", "1,2,31"; empty: none
    std::string interface;       // identifier of the interface that the channel is on, in hexadecimal; empty: not said
    std::optional<Cause> cause;  // the first
    std::optional<std::uint8_t> call_state;     // 0..63
    std::optional<std::uint8_t> restart_class;  // 0 channels, 6 the interface, 7 all interfaces
};
