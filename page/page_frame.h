#pragma once

#include "calls/call_table.h"
#include "calls/message.h"

// A frame that the table of calls has added.
struct PageFrame {
    Message message;
    CallTable::Added added;
    bool has_content = false;  // it holds more than a head of layer 2
};
