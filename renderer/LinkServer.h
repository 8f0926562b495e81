#pragma once
// The renderer's side of the link: a socket on 127.0.0.1 that takes one
// connection at a time, a scene stream or a query (see LinkProtocol.h).
// Whatever a connection sends, the worst it does is to be dropped with a line
// in the log; the held models change only by a stream received whole.
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <ostream>

#include "renderer/HeldScenes.h"

namespace renderer {

struct LinkLimits {
    // A stream larger than this is cut off and dropped.
    std::size_t maxStreamBytes = std::size_t{1} << 30;
    // A connection that sends nothing for this long is dropped. The plug-in
    // connects before it meshes, and its writer sends in large blocks, so a
    // quiet spell of minutes is no fault on a large model.
    std::chrono::milliseconds idleTimeout{300000};
    // Where each stream received whole is also kept as it came, as
    // stream-1.vnz, stream-2.vnz...; empty: nowhere.
    std::filesystem::path keptStreams;
};

class LinkServer {
public:
    LinkServer(HeldScenes& scenes, std::ostream& log, LinkLimits limits) : scenes_(scenes), log_(log), limits_(limits) {}
    LinkServer(const LinkServer&) = delete;
    LinkServer& operator=(const LinkServer&) = delete;
    ~LinkServer();

    // Listens on the first port of first..last that is free; answers it, or
    // 0 if none is.
    int listenOnFirstFree(int first, int last);

    // Serves connections until `stop` answers true; it is asked at least
    // twice a second.
    void serve(const std::function<bool()>& stop);

private:
    void handle(int connection);
    // Reads the rest of a stream after its first bytes; answers why it was
    // dropped, or empty with the stream whole in `stream`.
    std::string readStream(int connection, std::string& stream);

    HeldScenes& scenes_;
    std::ostream& log_;
    LinkLimits limits_;
    int listener_ = -1;
    int streamsReceived_ = 0;
};

}  // namespace renderer
