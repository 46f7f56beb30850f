#include "report/run_end.h"

#include <cstdio>
#include <cstdlib>

#include "report/state.h"

void end_run(int status) {
    if (!ofp.close()) {
        std::printf("Failed writing file %s\n", ofp.name());
        status = 1;
    }
    std::exit(status);
}
