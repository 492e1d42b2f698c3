#include "Tests/Player/Films.h"

#include "Tests/Player/Process.h"

#include <fstream>
#include <stdexcept>
#include <vector>

namespace Player {

namespace {

namespace fs = std::filesystem;

void run(const std::vector<std::string>& command) {
    Process process(command);
    if (process.wait() != 0) {
        throw std::runtime_error(command.front() + " failed: " + process.errors());
    }
}

// Tests run side by side, so a film appears under its name only when it is complete.
template <class Make>
fs::path film(const std::string& name, Make make) {
    const fs::path path = fs::path(KIVPLAYER_TEST_FILMS) / name;
    if (!fs::exists(path)) {
        const TemporaryFolder folder;
        const fs::path made = folder.path() / name;
        make(made.string());
        fs::create_directories(path.parent_path());
        const fs::path beside = path.string() + "." + folder.path().filename().string();
        fs::copy_file(made, beside);
        fs::rename(beside, path);
    }
    return path;
}

std::vector<std::string> ffmpeg(const std::vector<std::string>& arguments) {
    std::vector<std::string> command{"ffmpeg", "-nostdin", "-hide_banner", "-loglevel", "error"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

} // namespace

fs::path Films::sample() {
    return film("sample.mkv", [](const std::string& path) { run({KIVPLAYER_MAKE_SAMPLE, path, "12"}); });
}

fs::path Films::white() {
    return film("white.mkv", [](const std::string& path) {
        run(ffmpeg({"-f", "lavfi", "-i", "color=white:size=640x360:rate=30:duration=6", "-c:v", "libx264",
                    "-preset", "ultrafast", path}));
    });
}

fs::path Films::subtitled() {
    return film("subtitled.mkv", [](const std::string& path) {
        const TemporaryFolder folder;
        const fs::path lines = folder.path() / "lines.srt";
        std::ofstream(lines) << "1\n00:00:00,000 --> 00:00:06,000\nA line of subtitles, gypq\n";
        run(ffmpeg({"-f", "lavfi", "-i", "color=black:size=640x360:rate=30:duration=6", "-i", lines.string(),
                    "-c:v", "libx264", "-preset", "ultrafast", "-c:s", "srt", "-disposition:s:0", "default",
                    path}));
    });
}

fs::path Films::sound() {
    return film("sound.flac", [](const std::string& path) {
        run(ffmpeg({"-f", "lavfi", "-i", "sine=duration=2", path}));
    });
}

fs::path Films::cut(const fs::path& whole, std::uintmax_t bytes, const std::string& name) {
    return film(name, [&](const std::string& path) {
        fs::copy_file(whole, path);
        fs::resize_file(path, bytes);
    });
}

} // namespace Player
