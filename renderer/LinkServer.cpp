#include "renderer/LinkServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "renderer/LinkProtocol.h"
#include "renderer/LinkSocket.h"

namespace renderer {

namespace {

constexpr std::size_t CHUNK = 1 << 16;

std::string sizeText(std::size_t bytes) { return std::to_string(bytes) + " bytes"; }

}  // namespace

LinkServer::~LinkServer() {
    if (listener_ >= 0) close(listener_);
}

int LinkServer::listenOnFirstFree(int first, int last) {
    for (int port = first; port <= last && port > 0 && port < 65536; ++port) {
        const int candidate = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (candidate < 0) return 0;
        // A port whose last connections are still closing is free to listen on.
        const int reuse = 1;
        setsockopt(candidate, SOL_SOCKET, SO_REUSEADDR, &reuse, sizeof reuse);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<std::uint16_t>(port));
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (bind(candidate, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 && listen(candidate, 8) == 0) {
            listener_ = candidate;
            return port;
        }
        close(candidate);
    }
    return 0;
}

void LinkServer::serve(const std::function<bool()>& stop) {
    while (!stop()) {
        pollfd waiting{listener_, POLLIN, 0};
        if (poll(&waiting, 1, 200) <= 0) continue;
        const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0) continue;
        const auto idle = limits_.idleTimeout;
        timeval timeout{static_cast<time_t>(idle.count() / 1000), static_cast<suseconds_t>(idle.count() % 1000 * 1000)};
        setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
        setsockopt(connection, SOL_SOCKET, SO_SNDTIMEO, &timeout, sizeof timeout);
        handle(connection);
        close(connection);
    }
}

void LinkServer::handle(int connection) {
    std::string stream;
    const std::string dropped = readStream(connection, stream);
    if (stream == SCENE_QUERY) {
        sendAll(connection, scenes_.outlineXml());
        return;
    }
    if (!dropped.empty()) {
        log_ << "stream dropped after " << sizeText(stream.size()) << ": " << dropped << std::endl;
        sendAll(connection, std::string(REFUSED) + " " + dropped + "\n");
        return;
    }
    const std::string_view scene = std::string_view(stream).substr(0, stream.size() - END_OF_STREAM.size() + 1);
    if (!limits_.keptStreams.empty()) {
        std::filesystem::create_directories(limits_.keptStreams);
        std::ofstream(limits_.keptStreams / ("stream-" + std::to_string(++streamsReceived_) + ".vnz"), std::ios::binary)
            << scene;
    }
    const std::string refused = scenes_.receive(scene);
    if (!refused.empty()) {
        log_ << "stream dropped after " << sizeText(stream.size()) << ": " << refused << std::endl;
        sendAll(connection, std::string(REFUSED) + " " + refused + "\n");
        return;
    }
    log_ << "stream received: " << sizeText(stream.size()) << std::endl;
    if (scenes_.statementsLeftOut() > 0)
        log_ << "the saved model lacks " << scenes_.statementsLeftOut() << " statements that can't be written again" << std::endl;
    sendAll(connection, std::string(ACCEPTED) + " " + sizeText(stream.size()) + "\n");
}

std::string LinkServer::readStream(int connection, std::string& stream) {
    std::vector<char> chunk(CHUNK);
    for (;;) {
        if (stream == SCENE_QUERY) return {};
        const ssize_t got = recv(connection, chunk.data(), chunk.size(), 0);
        if (got == 0) break;
        if (got < 0) {
            if (errno == EINTR) continue;
            if (errno == EAGAIN || errno == EWOULDBLOCK) return "the client sent nothing for too long";
            return std::string("the connection failed: ") + std::strerror(errno);
        }
        if (stream.size() + static_cast<std::size_t>(got) > limits_.maxStreamBytes)
            return "the stream is larger than " + sizeText(limits_.maxStreamBytes);
        stream.append(chunk.data(), static_cast<std::size_t>(got));
        if (stream.ends_with(END_OF_STREAM)) return {};
    }
    return "the stream ended before its last line";
}

}  // namespace renderer
