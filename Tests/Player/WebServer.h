#pragma once

#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace KivUICore::Player {

/// Where a web server of this machine would be: connections are taken, and what they get is up to the test.
class WebServer {
public:
    WebServer() {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        bind(descriptor_, reinterpret_cast<const sockaddr*>(&address), size);
        listen(descriptor_, 8);
        getsockname(descriptor_, reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
    }
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;
    ~WebServer() { close(descriptor_); }

    std::string url(const std::string& path) const {
        return "http://127.0.0.1:" + std::to_string(port_) + "/" + path;
    }

    /// The next connection's descriptor, the caller's to close; negative after `stop`.
    int nextConnection() const { return accept(descriptor_, nullptr, nullptr); }

    void stop() const { shutdown(descriptor_, SHUT_RDWR); }

private:
    int descriptor_ = socket(AF_INET, SOCK_STREAM, 0);
    int port_ = 0;
};

} // namespace KivUICore::Player
