#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace KivUICore::Player {

/// The location that stands for the standard input.
inline constexpr const char* standardInput = "-";

/// True for `scheme://…`; everything else is a file's path.
bool isUrl(const std::string& location);

/// The path of a file that is given as such or as a `file:` URL; nothing for any other URL.
std::optional<std::string> localPath(const std::string& location);

/// A location as people may see it: a URL goes without user and password, and in place of what follows a
/// question mark or a number sign, where keys and tokens stand, comes an ellipsis.
std::string shownLocation(const std::string& location);

/// A text with all URLs in it as people may see them.
std::string withoutSecrets(std::string_view text);

/// What to call a film that doesn't tell its title: the name of its file, or of the server where the URL
/// names no file; fit for one line.
std::string nameOf(const std::string& location);

/// What stops the file at `path` from being read, as the end of a sentence ("no such file"); nothing when it
/// can be.
std::optional<std::string> whyUnreadable(const std::string& path);

} // namespace KivUICore::Player
