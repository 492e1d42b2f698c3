#pragma once

#include <optional>
#include <string>

namespace Player {

/// True for `scheme://…`; everything else is a file's path.
bool isUrl(const std::string& location);

/// What to call a film that doesn't tell its title: its file's name, or the URL.
std::string nameOf(const std::string& location);

/// What stops the file at `path` from being read, as the end of a sentence ("no such file"); nothing when it
/// can be.
std::optional<std::string> whyUnreadable(const std::string& path);

} // namespace Player
