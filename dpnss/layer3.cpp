#include "dpnss/layer3.h"

#include "dpnss/fields.h"
#include "dpnss/message_types.h"
#include "report/lines.h"
#include "report/state.h"
#include "trace/trace_reader.h"

namespace {

void decode(Field field) {
    switch (field) {
        case Field::NONE: return;
        case Field::SERVICE_INDICATOR: return service_ind_code();
        case Field::SELECTION: return selection_field();
        case Field::INDICATION: return indication_field();
        case Field::CAUSE: return clear_rej_cause();
        case Field::MAINTENANCE: return maintenance_action();
        case Field::USER_DATA_CONTROL: return udc_control_field();
    }
}

}  // namespace

void ds2_layer3() {
    octet();
    const MessageType& type = message_type(value, variant_is(PRI_DASS2), flag == 0);
    named_octet(type.name);
    decode(type.first);
    decode(type.second);
}
