#include "host/realmodel/ProgressLine.h"

#include <chrono>

namespace host::realmodel {

ReadingLine::ReadingLine(std::FILE* out, std::string model) : out_(out), model_(std::move(model)) {
    show(0.0);
    ticker_ = std::thread([this] {
        const auto start = std::chrono::steady_clock::now();
        std::unique_lock<std::mutex> lock(mutex_);
        while (!wake_.wait_for(lock, std::chrono::milliseconds(500), [this] { return done_; })) {
            show(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        }
    });
}

ReadingLine::~ReadingLine() { done(); }

void ReadingLine::done() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        if (done_) return;
        done_ = true;
    }
    wake_.notify_all();
    ticker_.join();
    std::fputc('\n', out_);
    std::fflush(out_);
}

void ReadingLine::show(double seconds) {
    std::fprintf(out_, "\rreading %s\u2026 %.0f s", model_.c_str(), seconds);
    std::fflush(out_);
}

void ProgressLine::show(std::size_t done, std::size_t total) {
    if (total == 0 || ended_) return;
    const std::size_t step = total / 100 + 1;
    if (done % step != 0 && done < total) return;
    if (done > total) done = total;
    std::fprintf(out_, "\rmeshing surfaces: %zu of %zu", done, total);
    if (done == total) {
        std::fputc('\n', out_);
        ended_ = true;
    }
    std::fflush(out_);
}

}  // namespace host::realmodel
