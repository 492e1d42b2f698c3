#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace KivUICore::Player {

/// Asks mpv itself what it does, by its protocol for other programs.
class MpvSocket {
public:
    explicit MpvSocket(std::filesystem::path path) : path_(std::move(path)) {}
    MpvSocket(const MpvSocket&) = delete;
    MpvSocket& operator=(const MpvSocket&) = delete;
    ~MpvSocket();

    const std::filesystem::path& path() const { return path_; }

    /// A property as it is now; nothing while it has no value or mpv can't be reached.
    std::optional<double> number(const std::string& property);
    std::optional<bool> flag(const std::string& property);

    /// A command in JSON: `"set_property", "pause", true`, given once mpv can be reached. False if it
    /// refuses.
    bool command(const std::string& words);

    /// Begins a command that may take long, without waiting for its end, once mpv can be reached. False if
    /// mpv can't be reached.
    bool begin(const std::string& words);

    /// Sends a command whose answer nobody takes, once mpv can be reached. False if mpv doesn't close the
    /// connection then.
    bool leaveBeforeTheAnswer(const std::string& words);

private:
    /// mpv's whole answer, in JSON; empty if there is none.
    std::string ask(const std::string& words);
    std::optional<std::string> value(const std::string& property);
    bool connect();
    bool waitForIt();
    std::string readLine();

    std::filesystem::path path_;
    int descriptor_ = -1;
    int requests_ = 0;
    std::string received_;
};

} // namespace KivUICore::Player
