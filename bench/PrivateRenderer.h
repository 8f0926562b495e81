#pragma once
// A real vantrel-app for the benchmarks, in a private home: HOME and the XDG
// folders point into `folder`, the renderer is registered there and started
// with its output in `folder`/held; it is stopped when the object goes.
#include <sys/types.h>

#include <cstddef>
#include <filesystem>

class PrivateRenderer {
public:
    explicit PrivateRenderer(const std::filesystem::path& folder);
    ~PrivateRenderer();
    PrivateRenderer(const PrivateRenderer&) = delete;
    PrivateRenderer& operator=(const PrivateRenderer&) = delete;

    // Announced as a running instance.
    bool running() const;
    // The streams that it has taken whole, by its log.
    std::size_t streamsReceived() const;

private:
    std::filesystem::path held_;
    pid_t app_ = 0;
};
