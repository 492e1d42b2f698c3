#include "Player/Desktop/SocketFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t longestPath = sizeof(sockaddr_un::sun_path) - 1;
constexpr std::array<int, 3> endingSignals{SIGHUP, SIGINT, SIGTERM};

// What a signal leaves behind; a signal's handler can be given nothing.
std::array<char, longestPath + 1> endangered{};

void removeAndEnd(int number) {
    SocketFile::removeAtOnce();
    // It comes after this one, and to nobody.
    ::raise(number);
}

void removeOnSignals(const std::string& path) {
    endangered.fill('\0');
    std::copy_n(path.begin(), std::min(path.size(), longestPath), endangered.begin());
    for (const int number : endingSignals) {
        struct sigaction action {};
        sigaction(number, nullptr, &action);
        if (action.sa_handler == SIG_DFL) {
            action.sa_handler = removeAndEnd;
            action.sa_flags = static_cast<int>(SA_RESETHAND);
            sigaction(number, &action, nullptr);
        }
    }
}

void forgetSignals() {
    for (const int number : endingSignals) {
        struct sigaction action {};
        sigaction(number, nullptr, &action);
        if (action.sa_handler == removeAndEnd) {
            std::signal(number, SIG_DFL);
        }
    }
}

/// What comes of a connection to the socket at `path`: nothing wrong, or an error's number.
int connectionError(const std::string& path) {
    sockaddr_un address{};
    if (path.size() > longestPath) {
        return ENAMETOOLONG;
    }
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), path.size());
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (descriptor < 0) {
        return errno;
    }
    const bool isConnected =
        ::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    const int error = isConnected ? 0 : errno;
    ::close(descriptor);
    return error;
}

// What makes a path useless is told behind it.
std::optional<std::string> problemOfSocket(const std::string& path) {
    const int error = connectionError(path);
    if (error == ECONNREFUSED || error == ENOENT) {
        return std::nullopt;
    }
    // Whose queue is full or who speaks in another way listens, too.
    if (error == 0 || error == EAGAIN || error == EPROTOTYPE) {
        return "is a socket that another program uses";
    }
    return std::string("cannot be asked who uses it: ") + std::strerror(error);
}

std::optional<std::string> problemOfFolder(const std::string& path) {
    const fs::path folder = "." / fs::path(path).parent_path() / "";
    if (::access(folder.c_str(), W_OK | X_OK) != 0) {
        return std::string("cannot be made: ") + std::strerror(errno);
    }
    return std::nullopt;
}

std::optional<std::string> problemOf(const std::string& path) {
    if (path.starts_with('@')) {
        return "would be a socket without a file, open to everybody; put './' before it";
    }
    if (path.size() > longestPath) {
        return "is longer than the " + std::to_string(longestPath) + " bytes that a socket's path may have";
    }
    std::error_code error;
    switch (fs::symlink_status(path, error).type()) {
    case fs::file_type::not_found:
        return problemOfFolder(path);
    case fs::file_type::socket:
        if (std::optional<std::string> problem = problemOfSocket(path)) {
            return problem;
        }
        return problemOfFolder(path);
    case fs::file_type::none:
    case fs::file_type::unknown:
        return "cannot be examined: " + error.message();
    default:
        return "is taken by something that is no socket";
    }
}

} // namespace

std::optional<std::string> SocketFile::whyNotAt(const std::string& path) {
    if (path.empty()) {
        return "a socket needs a path";
    }
    const std::optional<std::string> problem = problemOf(path);
    return problem ? std::optional("'" + path + "' " + *problem) : std::nullopt;
}

void SocketFile::removeAtOnce() {
    struct stat status {};
    if (::lstat(endangered.data(), &status) == 0 && S_ISSOCK(status.st_mode)) {
        ::unlink(endangered.data());
    }
}

SocketFile::SocketFile(std::string path) : path_(std::move(path)) { removeOnSignals(path_); }

SocketFile::~SocketFile() {
    std::error_code error;
    if (fs::symlink_status(path_, error).type() == fs::file_type::socket &&
        connectionError(path_) == ECONNREFUSED) {
        fs::remove(path_, error);
        endangered.fill('\0');
    }
    forgetSignals();
}

} // namespace KivUICore::Player
