#include "Tests/Hostile/Storm.h"

#include "Tests/Player/Films.h"
#include "Tests/Player/PlayerProgram.h"

#include <X11/keysym.h>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;

constexpr int width = 640;
constexpr int height = 360;
constexpr int playX = 26;
constexpr int playY = 340;

void expect(bool condition, const std::string& otherwise) {
    if (!condition) {
        throw std::runtime_error(otherwise);
    }
}

std::string uri(const fs::path& path) { return "file://" + path.string() + "\r\n"; }

fs::path written(const fs::path& path, const std::string& contents) {
    std::ofstream(path, std::ios::binary) << contents;
    return path;
}

/// What a person may drop: films, what is none, what is not there, lists, folders and nonsense.
std::vector<std::string> dropsIn(const fs::path& folder) {
    const std::string good = uri(Films::sample());
    std::string many;
    for (int copy = 0; copy < 50; ++copy) {
        many += uri(copy % 7 == 0 ? Films::white() : folder / ("missing" + std::to_string(copy)));
    }
    return {good, uri(Films::white()), uri(Films::sound()), uri(Films::manyTracks()), uri(Films::subtitled()),
            good + uri(Films::white()), uri(written(folder / "text.mkv", "no film at all\n")),
            uri(written(folder / "empty.mkv", "")), uri(Films::cut(Films::sample(), 50000, "storm-cut.mkv")),
            uri(written(folder / "list.m3u", Films::white().string() + "\nmissing.mkv\nlist.m3u\n")),
            uri(written(folder / "lines.srt", "1\n00:00:00,000 --> 00:00:09,000\nHello\n")), uri(folder),
            uri(folder / "missing.mkv"), many, "http://127.0.0.1:1/film.mkv\r\n", "file://%00%ff/%zz\r\n",
            "\r\n",
            // SDL 2.26 reads a byte too many of what has no scheme.
            "nothing:/" + std::string(5000, 'x') + "\r\n"};
}

} // namespace

Storm::Storm(unsigned seed) : script_(seed), uris_(dropsIn(folder_.path())), mpv_(folder_.path() / "mpv") {
    screen_.startWindowManager();
    start();
}

void Storm::start() {
    // Freed memory that is kept to find its users would look like a leak.
    const char* given = std::getenv("ASAN_OPTIONS");
    const std::string options = std::string(given ? given : "") + ":quarantine_size_mb=8";
    player_ = startPlayer({Films::sample().string(), "--mute", "--software", "--size", "640x360",
                           "--ipc-server", mpv_.path().string()},
                          {{"DISPLAY", screen_.name()}, {"ASAN_OPTIONS", options}});
    ++starts_;
    awaitWindow();
}

// A window that was asked for twice at once may stay minimised, as the window manager understood it.
void Storm::awaitWindow() {
    const auto isSettled = [this] { return screen_.findWindow() != 0 || !player_->isRunning(); };
    expect(eventually([&] {
               const bool isThere = eventually(isSettled, std::chrono::seconds(2));
               if (!isThere) {
                   tryTool({"search", "--class", "kivplayer", "windowactivate"});
               }
               return isThere;
           }),
           "the window is gone and the player is not");
}

// What is done to a window that goes meanwhile is done to nothing.
bool Storm::tryTool(const std::vector<std::string>& words) const {
    try {
        screen_.runTool(words);
    } catch (const std::runtime_error&) {
        return false;
    }
    return true;
}

void Storm::rage() {
    constexpr unsigned portionsADrop = 2;
    if (const unsigned long window = screen_.findWindow()) {
        if (!tryTool(script_.nextWords(std::to_string(window)))) {
            // Nobody holds the button down over the next window.
            screen_.releaseButton();
        }
    }
    startAgainIfItEnded();
    if (script_.pick(portionsADrop) == 0) {
        drop(uris_.at(script_.pick(static_cast<unsigned>(uris_.size()))));
    }
}

void Storm::drop(const std::string& uris) {
    awaitWindow();
    ++drops_;
    const bool isTaken = screen_.drop(uris);
    startAgainIfItEnded();
    expect(isTaken || starts_ > 1, "the player does not take what is dropped");
}

void Storm::startAgainIfItEnded() {
    awaitWindow();
    if (!player_->isRunning()) {
        expectGoodEnd();
        start();
    }
}

// A film that was not to be played makes it 1; what a sanitizer finds is anything else, or says more than one
// line.
void Storm::expectGoodEnd() {
    const int code = player_->wait().value_or(-1);
    const std::string errors = player_->errors();
    std::istringstream lines(errors);
    bool isOwn = true;
    for (std::string line; std::getline(lines, line);) {
        isOwn = isOwn && line.starts_with("kivplayer: ");
    }
    expect(isOwn && (code == 0 || code == 1),
           "the player ended with " + std::to_string(code) + ":\n" + errors);
}

void Storm::calmDown() {
    startAgainIfItEnded();
    drop(uri(Films::sample()));
    const auto isPaused = [this] { return mpv_.flag("pause"); };
    expect(eventually([this] { return mpv_.number("duration").value_or(0.0) > 10.0; }),
           "it plays no dropped film");
    const std::string window = std::to_string(screen_.findWindow());
    const auto hasItsSize = [this] {
        const std::optional<Picture> picture = screen_.window();
        return picture && picture->width() == width && picture->height() == height;
    };
    // It may have all of the screen.
    expect(eventually([&] {
               screen_.runTool({"windowactivate", window, "windowsize", window, std::to_string(width),
                                std::to_string(height)});
               const bool isGiven = eventually(hasItsSize, std::chrono::seconds(2));
               if (!isGiven) {
                   screen_.pressKey(XK_f);
               }
               return isGiven;
           }),
           "it does not take a size");
    const std::optional<bool> before = isPaused();
    // The first click may close a menu, the next one bring the bars back.
    expect(eventually([&] {
               screen_.runTool({"mousemove", "--window", window, std::to_string(playX), std::to_string(playY),
                                "click", "1"});
               return eventually([&] { return isPaused() != before; }, std::chrono::seconds(2));
           }),
           "its button does nothing");
    screen_.pressKey(XK_q);
    expect(player_->wait().has_value(), "it does not end");
    expectGoodEnd();
    expect(player_->wait() == 0, "it ends with a failure though its film plays");
}

} // namespace KivUICore::Player
