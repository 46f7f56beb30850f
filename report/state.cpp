#include "report/state.h"

OutputStream ofp;
Variant swit;
std::uint8_t BRItrace;
std::int32_t Ticks_resolution;
std::int32_t First_Msg;
std::uint32_t tick_base;
char cTimeStamp[100];

std::int32_t flag;
std::int32_t msglen;
std::int32_t dsl;
std::int32_t sapi;
std::int32_t tei;
std::int32_t bCRflag;
std::int32_t debug_msg;
std::int32_t time_stamp_msg;

std::int32_t value;
std::int32_t prtcol_discr;
std::int32_t Lock_shift;
std::int32_t ielength;

void reset_state() {
    swit = NO_VARIANT;
    BRItrace = 0;
    Ticks_resolution = 0;
    First_Msg = 0;
    tick_base = 0;
    cTimeStamp[0] = '\0';

    flag = 0;
    msglen = 0;
    dsl = 0;
    sapi = 0;
    tei = 0;
    bCRflag = 0;
    debug_msg = 0;
    time_stamp_msg = 0;

    value = 0;
    prtcol_discr = 0;
    Lock_shift = 0;
    ielength = 0;
}
