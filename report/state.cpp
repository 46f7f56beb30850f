#include "report/state.h"

#include "driver/trace_stream.h"

TraceStream ifp;
ReportStream ofp;
Variant swit = NO_VARIANT;
std::uint8_t BRItrace = 0;
std::int32_t Ticks_resolution = 0;
std::int32_t First_Msg = 0;
char cTimeStamp[100] = "";

std::int32_t flag = 0;
std::int32_t msglen = 0;
std::int32_t dsl = 0;
std::int32_t sapi = 0;
std::int32_t tei = 0;
std::int32_t bCRflag = 0;
std::int32_t debug_msg = 0;
std::int32_t time_stamp_msg = 0;

std::int32_t value = 0;
std::int32_t prtcol_discr = 0;
std::int32_t Lock_shift = 0;
std::int32_t ielength = 0;
