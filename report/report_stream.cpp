#include "report/report_stream.h"

#include <unistd.h>

#include "report/run_end.h"
#include "report/write_all.h"

void ReportStream::attach(int descriptor, const char* name) {
    descriptor_ = descriptor;
    name_ = name;
    lost_ = false;
    fill_ = 0;
}

bool ReportStream::write_out() {
    lost_ = lost_ || !write_all(descriptor_, buffer_.data(), fill_);
    fill_ = 0;
    return !lost_;
}

void ReportStream::flush() {
    if (!write_out()) {
        end_run(1);
    }
}

bool ReportStream::close() {
    if (descriptor_ < 0) {
        return true;
    }
    const bool written = write_out();
    const bool closed = ::close(descriptor_) == 0;
    descriptor_ = -1;
    return written && closed;
}
