#include "renderer/LinkSocket.h"

#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>

namespace renderer {

int connectTo(const char* host, int port) {
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host, std::to_string(port).c_str(), &hints, &found) != 0) return -1;
    int connected = -1;
    for (addrinfo* address = found; address && connected < 0; address = address->ai_next) {
        const int candidate = socket(address->ai_family, address->ai_socktype | SOCK_CLOEXEC, address->ai_protocol);
        if (candidate < 0) continue;
        if (connect(candidate, address->ai_addr, address->ai_addrlen) == 0) {
            connected = candidate;
        } else {
            close(candidate);
        }
    }
    freeaddrinfo(found);
    return connected;
}

bool sendAll(int socket, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR) continue;
        if (sent <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

std::string receiveAll(int socket, std::chrono::milliseconds timeout) {
    timeval limit{static_cast<time_t>(timeout.count() / 1000), static_cast<suseconds_t>(timeout.count() % 1000 * 1000)};
    setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    std::string received;
    char buffer[4096];
    for (;;) {
        const ssize_t got = recv(socket, buffer, sizeof buffer, 0);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return received;
        received.append(buffer, static_cast<std::size_t>(got));
    }
}

}  // namespace renderer
