#include "report/run_end.h"

#include <cstdio>
#include <cstdlib>

#include "driver/trace/trace_stream.h"
#include "report/state.h"

void end_run(int status) {
    if (ifp.failed() != nullptr) {
        std::printf("Failed reading file %s\n", ifp.failed());
        status = 1;
    }
    if (!ofp.close()) {
        std::printf("Failed writing file %s\n", ofp.name());
        status = 1;
    }
    std::exit(status);
}
