#include "Player/Desktop/Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <system_error>

namespace Player {

namespace {

constexpr const char* description = "Plays a film under on-screen control bars.";
constexpr const char* footer =
    "Keys: space pauses and goes on; left and right go 5 seconds; up and down change the volume, m mutes;\n"
    "0 to 9, home and end go to a part of the film; , and . go from picture to picture; f is for full "
    "screen,\n"
    "which escape leaves; q quits. A file dropped on the window is played.\n"
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

void parseSize(const std::string& text, Options& options) {
    constexpr int smallest = 16;
    constexpr int largest = 8192;
    const std::size_t cross = text.find('x');
    const bool isSize =
        cross != std::string::npos && CLI::detail::lexical_cast(text.substr(0, cross), options.width) &&
        CLI::detail::lexical_cast(text.substr(cross + 1), options.height) && options.width >= smallest &&
        options.width <= largest && options.height >= smallest && options.height <= largest;
    if (!isSize) {
        throw CLI::ValidationError("--size", "'" + text + "' is no size such as 1280x720");
    }
}

// What is there gives way to the socket, and must be no file that somebody needs.
std::string whyNoSocket(const std::string& path) {
    if (path.empty()) {
        return "a socket needs a path";
    }
    std::error_code error;
    const std::filesystem::file_type type = std::filesystem::symlink_status(path, error).type();
    const bool isFree =
        type == std::filesystem::file_type::not_found || type == std::filesystem::file_type::socket;
    return isFree ? std::string() : "'" + path + "' is taken by something that is no socket";
}

void declare(CLI::App& app, Options& options) {
    constexpr double longestTime = 1e7;
    constexpr double smallestScale = 0.5;
    constexpr double largestScale = 8.0;
    app.add_option("film", options.location, "The file or URL to play")->type_name("FILE|URL");
    app.add_option("--snapshot", options.snapshotFolder,
                   "Open no window; write film.png, overlay.png and snapshot.png (both) into DIR and end")
        ->type_name("DIR");
    app.add_option("--at", options.start,
                   "Start there, exactly; a time beyond the end means the last picture")
        ->type_name("SECONDS")
        ->check(numberFrom(0.0, longestTime, "number of seconds from 0"));
    app.add_option_function<std::string>(
           "--size", [&options](const std::string& text) { parseSize(text, options); },
           "Size of the window in points (1280x720)")
        ->type_name("WxH");
    app.add_option("--scale", options.scale,
                   "Pixels a point, from 0.5 to 8 (what the screen says; 1 for pictures)")
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
    app.add_option(
           "--ipc-server", options.ipcServer,
           "Let other programs control the film and ask about it at this socket, in mpv's own protocol")
        ->type_name("PATH")
        ->check(CLI::Validator(whyNoSocket, ""));
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
        return Exit{ExitCode::Usage, std::string(error.what()) + " (see --help)"};
    }
    if (options.location.empty()) {
        return Exit{ExitCode::Usage, "there is no FILE or URL to play (see --help)"};
    }
    if (isTooLarge(options)) {
        return Exit{ExitCode::Usage, "--size times --scale is more than 8192 pixels (see --help)"};
    }
    return options;
}

} // namespace Player
