#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace Project {

/// The C and C++ files below `root` as paths from it, with forward slashes, sorted. Leaves out hidden folders
/// and the top-level folders named in `skippedFolders`.
std::vector<std::string> sourcesUnder(const std::filesystem::path& root,
                                      const std::set<std::string>& skippedFolders = {});

/// The whole file; empty when it cannot be read.
std::string contentsOf(const std::filesystem::path& file);

} // namespace Project
