#include "Player/Desktop/Options.h"

#include "Player/Desktop/FilmLocation.h"
#include "Player/Desktop/SocketFile.h"
#include "Player/Desktop/TimeText.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <system_error>

namespace KivUICore::Player {

namespace {

constexpr const char* description = "Plays a film under on-screen control bars.";
constexpr const char* footer =
    "Keys: space pauses and goes on; left and right go 5 seconds; up and down change the volume, m mutes;\n"
    "0 to 9, home and end go to a part of the film; , and . go from picture to picture; f is for full "
    "screen.\n"
    "Escape cancels a drag, closes a menu, leaves full screen; q quits.\n"
    "A film or an address that is dropped on the window is played, and subtitles are added to the film.\n"
    "Exit code: 0 when all went well; 1 when the film cannot be played or a picture not written;\n"
    "2 when there is no display or the command line is wrong.";
constexpr const char* version = "kivplayer " KIVPLAYER_VERSION;

// Unlike the library's own range this one has no room for what is not a number.
template <class Number>
CLI::Validator numberFrom(Number smallest, Number largest, const std::string& what) {
    const auto check = [smallest, largest, what](const std::string& text) {
        Number value{};
        const bool isNumber = CLI::detail::lexical_cast(text, value);
        return isNumber && value >= smallest && value <= largest ? std::string()
                                                                 : "'" + text + "' is no " + what;
    };
    return {check, ""};
}

void parseStart(const std::string& text, Options& options) {
    constexpr double longestTime = 1e7;
    const std::optional<double> start = secondsOf(text);
    if (!start || *start > longestTime) {
        throw CLI::ValidationError("--at", "'" + text + "' is no time such as 90, 1:30 or 1:02:03");
    }
    options.start = *start;
}

void parseSize(const std::string& text, Options& options) {
    constexpr double smallest = 16.0;
    constexpr double largest = 8192.0;
    static const std::regex form("([0-9]+)x([0-9]+)");
    std::smatch parts;
    if (!std::regex_match(text, parts, form)) {
        throw CLI::ValidationError("--size", "'" + text + "' is no size such as 1280x720");
    }
    const double width = std::strtod(parts.str(1).c_str(), nullptr);
    const double height = std::strtod(parts.str(2).c_str(), nullptr);
    if (std::min(width, height) < smallest || std::max(width, height) > largest) {
        throw CLI::ValidationError("--size", "'" + text + "' is not from 16x16 to 8192x8192");
    }
    options.width = static_cast<int>(width);
    options.height = static_cast<int>(height);
}

void declare(CLI::App& app, Options& options) {
    constexpr double shortestTimeout = 0.001;
    constexpr double longestTimeout = 1e7;
    constexpr double smallestScale = 0.5;
    constexpr double largestScale = 8.0;
    app.add_option("film", options.location, "The file or URL to play; - plays the standard input")
        ->type_name("FILE|URL");
    app.add_option("--snapshot", options.snapshotFolder,
                   "Open no window; write film.png, overlay.png and snapshot.png (both) into DIR and end")
        ->type_name("DIR");
    app.add_option("--timeout", options.timeout,
                   "With --snapshot: give up when there is no picture after so long (30)")
        ->type_name("SECONDS")
        ->check(numberFrom(shortestTimeout, longestTimeout, "number of seconds from 0.001"));
    app.add_option_function<std::string>(
           "--at", [&options](const std::string& text) { parseStart(text, options); },
           "Start there, exactly: in seconds, or 1:30, or 1:02:03; a time beyond the end means the last "
           "picture")
        ->type_name("TIME");
    app.add_option_function<std::string>(
           "--size", [&options](const std::string& text) { parseSize(text, options); },
           "Size of the window in points (1280x720)")
        ->type_name("WxH");
    app.add_option("--scale", options.scale,
                   "Pixels a point, from 0.5 to 8 (what the screen or desktop says; 1 for pictures)")
        ->type_name("N")
        ->check(numberFrom(smallestScale, largestScale, "scale from 0.5 to 8"));
    CLI::Option* software = app.add_flag_callback(
        "--software", [&options] { options.drawing = Options::Drawing::Software; }, "Draw without OpenGL");
    app.add_flag_callback(
           "--opengl", [&options] { options.drawing = Options::Drawing::OpenGL; },
           "Draw by OpenGL, also where the processor does its work")
        ->excludes(software);
    app.add_flag_callback(
        "--mute", [&options] { options.sound = Options::Sound::Muted; },
        "Start without sound; m brings it back");
    app.add_option("--ipc-server", options.ipcServer,
                   "Let your other programs control the player at this socket, in mpv's own protocol; with "
                   "it they can "
                   "do all that you can, also run programs and write files")
        ->type_name("PATH")
        ->check(CLI::Validator(
            [](const std::string& path) { return SocketFile::whyNotAt(path).value_or(""); }, ""));
    app.set_version_flag("--version", version, "Print the version and end");
    app.set_help_flag("-h,--help", "Print this text and end");
    app.footer(footer);
}

// A picture of this size still fits into any machine's memory.
bool isTooLarge(const Options& options) {
    constexpr double mostPixels = 8192.0;
    return std::max(options.width, options.height) * options.scale.value_or(1.0) > mostPixels;
}

} // namespace

std::variant<Options, Exit> parseOptions(int count, const char* const* arguments) {
    Options options;
    CLI::App app(description, "kivplayer");
    declare(app, options);
    try {
        app.parse(count, arguments);
    } catch (const CLI::CallForHelp&) {
        return Exit{ExitCode::Success, app.help()};
    } catch (const CLI::CallForVersion&) {
        return Exit{ExitCode::Success, std::string(version) + "\n"};
    } catch (const CLI::ParseError& error) {
        return Exit{ExitCode::Usage, withoutSecrets(error.what()) + " (see --help)"};
    }
    if (options.location.empty()) {
        return Exit{ExitCode::Usage, "there is no FILE or URL to play (see --help)"};
    }
    if (isTooLarge(options)) {
        return Exit{ExitCode::Usage, "--size times --scale is more than 8192 pixels (see --help)"};
    }
    return options;
}

} // namespace KivUICore::Player
