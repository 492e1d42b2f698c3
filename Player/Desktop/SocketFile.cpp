#include "Player/Desktop/SocketFile.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sys/socket.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>

namespace Player {

namespace {

bool isAbandoned(const std::string& path) {
    sockaddr_un address{};
    if (path.size() >= sizeof address.sun_path) {
        return false;
    }
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), path.size());
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (descriptor < 0) {
        return false;
    }
    const bool isRefused =
        ::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) < 0 &&
        errno == ECONNREFUSED;
    ::close(descriptor);
    return isRefused;
}

} // namespace

SocketFile::~SocketFile() {
    std::error_code error;
    if (path_ &&
        std::filesystem::symlink_status(*path_, error).type() == std::filesystem::file_type::socket &&
        isAbandoned(*path_)) {
        std::filesystem::remove(*path_, error);
    }
}

} // namespace Player
