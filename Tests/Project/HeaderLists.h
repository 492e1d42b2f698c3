#pragma once

#include "Tests/Project/IncludeRules.h"

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Project {

/// The headers of modules as their CMakeLists.txt list them, as paths from the root.
struct HeaderLists {
    std::set<std::string> publicFace;
    std::set<std::string> needed; ///< Installed because a header of the public face needs them.
    std::set<std::string> notInstalled;
};

/// Adds what `list`, the text of the CMakeLists.txt in `folder`, says about headers.
void addHeaderLists(HeaderLists& lists, const std::string& folder, std::string_view list);

/// Of all modules that are part of the installed package.
HeaderLists installedHeaderLists(const std::filesystem::path& root, const std::vector<ModuleRule>& rules);

/// Headers that are installed and include one that isn't, and headers that are installed as needed and that
/// nothing of the public face leads to.
std::vector<Violation> checkInstalled(const std::filesystem::path& root, const HeaderLists& lists);

} // namespace Project
