#include "Tests/Player/MpvSocket.h"

#include "Tests/Player/Process.h"

#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace KivUICore::Player {

MpvSocket::~MpvSocket() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

// mpv makes the socket some time after it was started, and listens a moment after it is there to be
// seen.
bool MpvSocket::connect() {
    if (descriptor_ >= 0) {
        return true;
    }
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path_.c_str(), sizeof address.sun_path - 1);
    const int made = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::connect(made, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        close(made);
        return false;
    }
    descriptor_ = made;
    return true;
}

bool MpvSocket::waitForIt() {
    return eventually([this] { return connect(); });
}

bool MpvSocket::begin(const std::string& words) {
    const std::string request = "{\"command\":[" + words + "],\"async\":true}\n";
    return waitForIt() && send(descriptor_, request.data(), request.size(), MSG_NOSIGNAL) ==
                              static_cast<ssize_t>(request.size());
}

bool MpvSocket::leaveBeforeTheAnswer(const std::string& words) {
    const std::string request = "{\"command\":[" + words + "]}\n";
    if (!waitForIt() || shutdown(descriptor_, SHUT_RD) != 0 ||
        send(descriptor_, request.data(), request.size(), MSG_NOSIGNAL) < 0) {
        return false;
    }
    pollfd closed{.fd = descriptor_, .events = 0, .revents = 0};
    return poll(&closed, 1, static_cast<int>(std::chrono::milliseconds(Process::patience).count())) > 0 &&
           (closed.revents & POLLHUP) != 0;
}

std::string MpvSocket::readLine() {
    std::size_t end = received_.find('\n');
    while (end == std::string::npos) {
        pollfd ready{.fd = descriptor_, .events = POLLIN, .revents = 0};
        char buffer[4096];
        if (poll(&ready, 1, static_cast<int>(std::chrono::milliseconds(Process::patience).count())) <= 0) {
            return {};
        }
        const ssize_t count = read(descriptor_, buffer, sizeof buffer);
        if (count <= 0) {
            return {};
        }
        received_.append(buffer, static_cast<std::size_t>(count));
        end = received_.find('\n');
    }
    const std::string line = received_.substr(0, end);
    received_.erase(0, end + 1);
    return line;
}

std::string MpvSocket::ask(const std::string& words) {
    if (!connect()) {
        return {};
    }
    const std::string number = std::to_string(++requests_);
    const std::string request = "{\"command\":[" + words + "],\"request_id\":" + number + "}\n";
    if (send(descriptor_, request.data(), request.size(), MSG_NOSIGNAL) !=
        static_cast<ssize_t>(request.size())) {
        return {};
    }
    // Between the answers mpv tells of events.
    for (std::string line = readLine(); !line.empty(); line = readLine()) {
        if (line.find("\"request_id\":" + number + ",") != std::string::npos) {
            return line;
        }
    }
    return {};
}

bool MpvSocket::command(const std::string& words) {
    return waitForIt() && ask(words).find("\"error\":\"success\"") != std::string::npos;
}

std::optional<std::string> MpvSocket::value(const std::string& property) {
    const std::string answer = ask("\"get_property\",\"" + property + "\"");
    const std::string key = "\"data\":";
    const std::size_t start = answer.find(key);
    if (start == std::string::npos) {
        return std::nullopt;
    }
    const std::size_t from = start + key.size();
    return answer.substr(from, answer.find(',', from) - from);
}

std::optional<double> MpvSocket::number(const std::string& property) {
    const std::optional<std::string> text = value(property);
    return text ? std::optional(std::strtod(text->c_str(), nullptr)) : std::nullopt;
}

std::optional<bool> MpvSocket::flag(const std::string& property) {
    const std::optional<std::string> text = value(property);
    return text ? std::optional(*text == "true") : std::nullopt;
}

} // namespace KivUICore::Player
