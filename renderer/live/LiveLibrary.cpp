// The renderer's run-time library, nvxvantrellive6_64.so. Its root hands out
// a scene object that writes the scene format over the link to a running
// renderer, and a query object that lists the announced renderers and asks
// one of them for its scene.
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <thread>

#include "importers/sceneapi/nvxLiveApi.h"
#include "importers/sceneapi/nvxScene_api_file.h"
#include "platform/Compiler.h"
#include "renderer/InstanceDirectory.h"
#include "renderer/LinkProtocol.h"
#include "renderer/LinkSocket.h"

namespace {

using namespace std::chrono_literals;

// Between two attempts of a connection.
constexpr auto ATTEMPT_DELAY = 250ms;
// How long the renderer may take to read, merge and save a stream.
constexpr auto ACKNOWLEDGEMENT_WAIT = 120s;
constexpr auto QUERY_WAIT = 10s;
constexpr std::size_t STREAM_BUFFER = 1 << 16;

// The stream that the scene writer writes to: what it is given goes to the
// connected socket, and is thrown away while there is none.
struct LinkStream {
    int socket = -1;
    FILE* file = nullptr;

    LinkStream() {
        cookie_io_functions_t functions{};
        functions.write = [](void* cookie, const char* bytes, std::size_t size) -> ssize_t {
            const int socket = static_cast<LinkStream*>(cookie)->socket;
            if (socket < 0) return static_cast<ssize_t>(size);
            return renderer::sendAll(socket, {bytes, size}) ? static_cast<ssize_t>(size) : -1;
        };
        file = fopencookie(this, "w", functions);
        if (file) setvbuf(file, nullptr, _IOFBF, STREAM_BUFFER);
    }
    ~LinkStream() {
        if (file) std::fclose(file);
        if (socket >= 0) close(socket);
    }
};

class LiveScene : private LinkStream, public nvxScene_api_file {
public:
    LiveScene() : LinkStream(), nvxScene_api_file(LinkStream::file, true) {}

    bool connect(const char* host, int port, int attempts) override {
        if (socket >= 0) disconnect();
        for (int attempt = 0; attempt < attempts; ++attempt) {
            if (attempt > 0) std::this_thread::sleep_for(ATTEMPT_DELAY);
            socket = renderer::connectTo(host, port);
            if (socket >= 0) return true;
        }
        return false;
    }

    // Ends the stream and waits until the renderer has taken it.
    bool disconnect() override {
        if (socket < 0) return false;
        const bool flushed = std::fflush(file) == 0 && renderer::sendAll(socket, renderer::END_OF_STREAM);
        std::clearerr(file);
        shutdown(socket, SHUT_WR);
        const std::string answer = flushed ? renderer::receiveAll(socket, ACKNOWLEDGEMENT_WAIT) : std::string();
        close(socket);
        socket = -1;
        return answer.starts_with(renderer::ACCEPTED);
    }
};

class LiveQuery : public nvxLiveQuery {
public:
    const char* list_instances() override {
        listing = renderer::instancesXml(renderer::runningInstances());
        return listing.c_str();
    }

    bool attach(int process_id) override {
        port = 0;
        for (const renderer::Instance& instance : renderer::runningInstances())
            if (instance.processId == process_id) port = instance.port;
        return port > 0;
    }

    void detach() override { port = 0; }

    const char* scene_text() override {
        if (port <= 0) return nullptr;
        const int socket = renderer::connectTo("127.0.0.1", port);
        if (socket < 0) return nullptr;
        const bool asked = renderer::sendAll(socket, renderer::SCENE_QUERY);
        text = asked ? renderer::receiveAll(socket, QUERY_WAIT) : std::string();
        close(socket);
        return text.empty() ? nullptr : text.c_str();
    }

private:
    std::string listing;
    std::string text;
    int port = 0;
};

class LiveRoot : public nvxLiveRoot {
public:
    nvxScene_api* scene_api() override { return &scene; }
    nvxLiveQuery* query_api() override { return &query; }

private:
    LiveScene scene;
    LiveQuery query;
};

}  // namespace

extern "C" VANTREL_EXPORT nvxLiveRoot* vantrel_live_initialize() { return new LiveRoot; }
