#pragma once

#include <optional>
#include <string>
#include <utility>

namespace Player {

/// The file of a socket that libmpv makes and leaves behind: taken away with this object, which outlives the
/// library's instance.
class SocketFile {
public:
    /// `path` is nothing where there is no socket.
    explicit SocketFile(std::optional<std::string> path) : path_(std::move(path)) {}
    SocketFile(const SocketFile&) = delete;
    SocketFile& operator=(const SocketFile&) = delete;

    /// Leaves alone what is no socket, and one that another program made in its place and listens at.
    ~SocketFile();

private:
    std::optional<std::string> path_;
};

} // namespace Player
