#pragma once

#include <filesystem>
#include <string>

namespace KivUICore::Player {

/// Files to play, made when first asked for and kept for the tests that follow.
class Films {
public:
    /// The sample clip, twelve seconds of it at 30 frames a second.
    static std::filesystem::path sample();

    /// Six seconds of plain white.
    static std::filesystem::path white();

    /// Six seconds of black with a line of subtitles.
    static std::filesystem::path subtitled();

    /// The same with a line that has a style of its own.
    static std::filesystem::path styledSubtitles();

    /// Six seconds with a key frame every two.
    static std::filesystem::path sparse();

    /// Five seconds with a title, two chapters, three sounds and three subtitles, named in several scripts or
    /// not.
    static std::filesystem::path manyTracks();

    /// Five seconds with `title` as the names of the film, its sound and its chapter.
    static std::filesystem::path titled(const std::string& title, const std::string& name);

    /// Two seconds of sound without a picture.
    static std::filesystem::path sound();

    /// The first `bytes` of another file, under `name`.
    static std::filesystem::path cut(const std::filesystem::path& whole, std::uintmax_t bytes,
                                     const std::string& name);
};

} // namespace KivUICore::Player
