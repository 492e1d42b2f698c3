#pragma once

#include "Tests/Player/StubbornServer.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace KivUICore::Player {

/// A web server for the files of a folder.
class FolderServer {
public:
    explicit FolderServer(std::filesystem::path folder) : folder_(std::move(folder)) {}
    FolderServer(const FolderServer&) = delete;
    FolderServer& operator=(const FolderServer&) = delete;
    ~FolderServer() {
        server_.stop();
        thread_.join();
    }

    std::string url(const std::string& path) const { return server_.url(path); }

private:
    std::string answerTo(const std::string& request) const {
        std::istringstream words(request);
        std::string method;
        std::string path;
        words >> method >> path;
        std::ifstream file(folder_ / std::filesystem::path(path).filename(), std::ios::binary);
        return file ? httpAnswer("200 OK", {std::istreambuf_iterator<char>(file), {}})
                    : httpAnswer("404 Not Found", "");
    }

    void serve() const {
        for (int client = server_.nextConnection(); client >= 0; client = server_.nextConnection()) {
            std::string request(4096, '\0');
            if (recv(client, request.data(), request.size(), 0) > 0) {
                const std::string answer = answerTo(request);
                send(client, answer.data(), answer.size(), MSG_NOSIGNAL);
            }
            close(client);
        }
    }

    std::filesystem::path folder_;
    WebServer server_;
    std::thread thread_{[this] { serve(); }};
};

} // namespace KivUICore::Player
