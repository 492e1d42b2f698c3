#include "Tests/Player/Films.h"

#include "Tests/Player/Process.h"

#include <fcntl.h>
#include <fstream>
#include <stdexcept>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;

void run(const std::vector<std::string>& command) {
    Process process(command);
    if (process.wait() != 0) {
        throw std::runtime_error(command.front() + " failed: " + process.errors());
    }
}

/// Held by one test at a time; gone with the test that holds it.
class Lock {
public:
    explicit Lock(const fs::path& path)
        : descriptor_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        if (flock(descriptor_, LOCK_EX) != 0) {
            throw std::runtime_error("cannot lock " + path.string());
        }
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() { close(descriptor_); }

private:
    int descriptor_;
};

// Tests run side by side: one of them makes a film, which takes all of the machine, and the others wait for
// it. It appears under its name only when it is complete, as a test may be ended at any time.
template <class Make>
fs::path film(const std::string& name, Make make) {
    const fs::path path = fs::path(KIVPLAYER_TEST_FILMS) / name;
    fs::create_directories(path.parent_path());
    const Lock lock(path.string() + ".lock");
    if (!fs::exists(path)) {
        const TemporaryFolder folder;
        const fs::path made = folder.path() / name;
        make(made.string());
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

void makeSubtitled(const std::string& path, const std::string& codec) {
    const TemporaryFolder folder;
    const fs::path lines = folder.path() / "lines.srt";
    std::ofstream(lines) << "1\n00:00:00,000 --> 00:00:06,000\nA line of subtitles, gypq\n";
    run(ffmpeg({"-f", "lavfi", "-i", "color=black:size=640x360:rate=30:duration=6", "-i", lines.string(),
                "-c:v", "libx264", "-preset", "ultrafast", "-c:s", codec, "-disposition:s:0", "default",
                path}));
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
    return film("subtitled.mkv", [](const std::string& path) { makeSubtitled(path, "srt"); });
}

fs::path Films::styledSubtitles() {
    return film("styled-subtitles.mkv", [](const std::string& path) { makeSubtitled(path, "ass"); });
}

fs::path Films::sparse() {
    return film("sparse.mkv", [](const std::string& path) {
        run(ffmpeg({"-f", "lavfi", "-i", "testsrc2=size=320x180:rate=30:duration=6", "-c:v", "libx264",
                    "-preset", "ultrafast", "-g", "60", "-keyint_min", "60", "-sc_threshold", "0", path}));
    });
}

fs::path Films::manyTracks() {
    return film("three-tracks.mkv",
                [](const std::string& path) {
                    const TemporaryFolder folder;
                    const fs::path lines = folder.path() / "lines.srt";
                    std::ofstream(lines) << "1\n00:00:01,000 --> 00:00:02,000\nHello\n";
                    const fs::path chapters = folder.path() / "chapters.txt";
                    std::ofstream(chapters)
                        << ";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=2500\ntitle=Öffnung\n"
                           "[CHAPTER]\nTIMEBASE=1/1000\nSTART=2500\nEND=5000\ntitle=終わり\n";
                    const std::string picture = "testsrc2=size=320x180:rate=30:duration=5";
                    const std::string tone = "sine=duration=5";
                    run(ffmpeg({"-f",
                                "lavfi",
                                "-i",
                                picture,
                                "-f",
                                "lavfi",
                                "-i",
                                tone,
                                "-i",
                                lines.string(),
                                "-i",
                                chapters.string(),
                                "-map",
                                "0",
                                "-map",
                                "1",
                                "-map",
                                "1",
                                "-map",
                                "1",
                                "-map",
                                "2",
                                "-map",
                                "2",
                                "-map",
                                "2",
                                "-map_metadata",
                                "3",
                                "-c:v",
                                "libx264",
                                "-preset",
                                "ultrafast",
                                "-c:a",
                                "flac",
                                "-c:s",
                                "srt",
                                "-metadata",
                                "title=Ein schöner Film 映画",
                                "-metadata:s:a:0",
                                "title=Комментарий",
                                "-metadata:s:a:1",
                                "language=ger",
                                "-metadata:s:s:0",
                                "title=字幕",
                                "-metadata:s:s:1",
                                "title=العربية",
                                "-metadata:s:s:2",
                                "language=heb",
                                "-disposition:s:0",
                                "0",
                                path}));
                });
}

fs::path Films::titled(const std::string& title, const std::string& name) {
    return film(name, [&](const std::string& path) {
        const TemporaryFolder folder;
        const fs::path metadata = folder.path() / "metadata.txt";
        std::string escaped;
        for (const char character : title) {
            escaped += character == '\n' ? "\\\n" : std::string(1, character);
        }
        std::ofstream(metadata) << ";FFMETADATA1\ntitle=" << escaped
                                << "\n[STREAM]\n[STREAM]\ntitle=" << escaped
                                << "\n[CHAPTER]\nTIMEBASE=1/1\nSTART=0\nEND=5\ntitle=" << escaped << "\n";
        run(ffmpeg({"-f",
                    "lavfi",
                    "-i",
                    "color=white:size=320x180:rate=30:duration=5",
                    "-f",
                    "lavfi",
                    "-i",
                    "sine=duration=5",
                    "-i",
                    metadata.string(),
                    "-map",
                    "0",
                    "-map",
                    "1",
                    "-map_metadata",
                    "2",
                    "-map_metadata:s:a:0",
                    "2:s:1",
                    "-map_chapters",
                    "2",
                    "-c:v",
                    "libx264",
                    "-preset",
                    "ultrafast",
                    "-c:a",
                    "flac",
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

} // namespace KivUICore::Player
