#pragma once

#include <cairo.h>
#include <optional>
#include <string>
#include <utility>

namespace KivUICore::Player {

/// A picture that appears under its name only when all of it is on the disk: it is written beside, and takes
/// the place of what was there at once. Until then that stays as it is, and so does what a link there leads
/// to.
class PictureFile {
public:
    /// It is to be at `path`.
    explicit PictureFile(std::string path) : path_(std::move(path)) {}
    PictureFile(const PictureFile&) = delete;
    PictureFile& operator=(const PictureFile&) = delete;

    /// Leaves nothing beside the picture.
    ~PictureFile();

    /// Writes it beside. What went wrong, as a sentence without its end; nothing if all is well.
    std::optional<std::string> write(cairo_surface_t* surface);

    /// Puts what was written in its place, and tells what went wrong in the same way.
    std::optional<std::string> putInPlace();

private:
    int createBeside();
    std::string problem(const char* reason) const;

    std::string path_;

    // Empty while there is none.
    std::string beside_;
};

} // namespace KivUICore::Player
