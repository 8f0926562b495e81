#pragma once
// The meshing progress of an export on one line of a terminal: rewritten in
// place at most about a hundred times, and ended once when the total is
// reached, however many requests (retries) come after.
#include <cstddef>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <string>
#include <thread>

namespace host::realmodel {

// "reading MODEL… 3 s" on one line, rewritten every half second by a thread
// of its own until the model has been read, then ended.
class ReadingLine {
public:
    ReadingLine(std::FILE* out, std::string model);
    ~ReadingLine();  // ends the line if `done` wasn't called
    ReadingLine(const ReadingLine&) = delete;
    ReadingLine& operator=(const ReadingLine&) = delete;

    void done();

private:
    void show(double seconds);

    std::FILE* out_;
    std::string model_;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool done_ = false;
    std::thread ticker_;
};

class ProgressLine {
public:
    explicit ProgressLine(std::FILE* out) : out_(out) {}

    void show(std::size_t done, std::size_t total);
    bool ended() const { return ended_; }

private:
    std::FILE* out_;
    bool ended_ = false;
};

}  // namespace host::realmodel
