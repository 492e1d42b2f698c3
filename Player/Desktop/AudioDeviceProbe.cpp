#include "Player/Desktop/AudioDeviceProbe.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace KivUICore::Player {

namespace {

bool isThere(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::exists(path, error);
}

} // namespace

bool hasAudioDevice() {
    if (isThere("/dev/snd") || std::getenv("PULSE_SERVER") || std::getenv("PIPEWIRE_REMOTE")) {
        return true;
    }
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    return folder && (isThere(std::filesystem::path(folder) / "pulse" / "native") ||
                      isThere(std::filesystem::path(folder) / "pipewire-0"));
}

} // namespace KivUICore::Player
