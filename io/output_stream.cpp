#include "io/output_stream.h"

#include <unistd.h>

#include <cstring>

#include "io/file_access.h"

void OutputStream::attach(int descriptor, const char* name) {
    descriptor_ = descriptor;
    name_ = name;
    sink_ = nullptr;
    written_ = 0;
    lost_ = false;
    next_ = buffer_.data();
}

void OutputStream::attach(OutputSink& sink) {
    attach(-1, "");
    sink_ = &sink;
}

void OutputStream::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::string_view piece = bytes.substr(0, LONGEST_PIECE);
        char* const at = room();
        std::memcpy(at, piece.data(), piece.size());
        filled(at + piece.size());
        bytes.remove_prefix(piece.size());
    }
}

// Writes out the first `size` bytes and moves the rest to the start of the buffer.
void OutputStream::write_out(std::size_t size) {
    if (sink_ != nullptr) {
        sink_->take({buffer_.data(), size});
    } else if (descriptor_ >= 0 && !lost_) {
        lost_ = !write_all(descriptor_, buffer_.data(), size);
    }
    written_ += size;
    next_ -= size;
    std::memmove(buffer_.data(), buffer_.data() + size, static_cast<std::size_t>(next_ - buffer_.data()));
}

bool OutputStream::flush() {
    write_out(static_cast<std::size_t>(next_ - buffer_.data()));
    return !lost_;
}

bool OutputStream::close() {
    const bool written = flush();
    const bool closed = descriptor_ < 0 || ::close(descriptor_) == 0;
    descriptor_ = -1;
    return written && closed;
}
