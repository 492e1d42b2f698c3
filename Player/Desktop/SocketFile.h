#pragma once

#include <optional>
#include <string>

namespace KivUICore::Player {

/// The file of a socket that libmpv makes and leaves behind: taken away with this object, which outlives the
/// library's instance, and also when the program is ended by a signal that nobody else handles. There is one
/// at a time.
class SocketFile {
public:
    /// Why there can't be a socket at `path`, as a sentence without its end; nothing if there can. What is
    /// there gives way to it, and must be no file that somebody needs.
    static std::optional<std::string> whyNotAt(const std::string& path);

    /// Takes away the file of the one there is, if any, where the program ends on the spot; also that of one
    /// that is gone, where it had to be left as somebody still listened. May be called in the handler of a
    /// signal.
    static void removeAtOnce();

    explicit SocketFile(std::string path);
    SocketFile(const SocketFile&) = delete;
    SocketFile& operator=(const SocketFile&) = delete;

    /// Leaves alone what is no socket, and one that another program made in its place and listens at.
    ~SocketFile();

private:
    std::string path_;
};

} // namespace KivUICore::Player
