#pragma once

#include "Tests/Player/WebServer.h"

#include <array>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace KivUICore::Player {

/// What a web server sends: `status` as in "404 Not Found".
inline std::string httpAnswer(const std::string& status, const std::string& body) {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

/// A web server that gives everybody the same answer.
class StubbornServer {
public:
    explicit StubbornServer(std::string answer) : answer_(std::move(answer)) {}
    StubbornServer(const StubbornServer&) = delete;
    StubbornServer& operator=(const StubbornServer&) = delete;
    ~StubbornServer() {
        server_.stop();
        thread_.join();
    }

    std::string url(const std::string& path) const { return server_.url(path); }

private:
    void serve() const {
        for (int client = server_.nextConnection(); client >= 0; client = server_.nextConnection()) {
            std::array<char, 4096> request{};
            if (recv(client, request.data(), request.size(), 0) > 0) {
                send(client, answer_.data(), answer_.size(), MSG_NOSIGNAL);
            }
            close(client);
        }
    }

    std::string answer_;
    WebServer server_;
    std::thread thread_{[this] { serve(); }};
};

} // namespace KivUICore::Player
