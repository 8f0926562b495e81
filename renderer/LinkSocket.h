#pragma once
// The client's end of the renderer's link: TCP connections on the loopback.
#include <chrono>
#include <string>
#include <string_view>

namespace renderer {

// A connected socket to host:port (an IPv4 address or a name), or -1.
int connectTo(const char* host, int port);

// Sends all the bytes; false if the connection failed.
bool sendAll(int socket, std::string_view bytes);

// Everything the other end sends until it closes or stays silent for the
// timeout.
std::string receiveAll(int socket, std::chrono::milliseconds timeout);

}  // namespace renderer
