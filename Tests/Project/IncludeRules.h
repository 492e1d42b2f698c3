#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Project {

/// One `#include` directive. `target` is what stands between the quotes or angle brackets; it is empty when
/// the directive names its header in any other way, such as through a macro.
struct Include {
    enum class Form { Quoted, Angled, Other };

    int line = 0;
    Form form = Form::Other;
    std::string target;
};

/// What a module may include. `folder` is relative to the repository's root.
struct ModuleRule {
    enum class External { StandardLibraryOnly, Listed, Any };

    std::string folder;
    std::set<std::string> mayInclude; ///< Folders of other modules.
    External external = External::StandardLibraryOnly;
    std::vector<std::string> externalPrefixes; ///< For `External::Listed`, besides the standard library.
};

/// An include that the rules forbid, or a file that they do not cover.
struct Violation {
    std::string file;
    int line = 0;
    std::string reason;
};

/// The modules of this project in building order, as Docs/architecture.md has them.
const std::vector<ModuleRule>& moduleRules();

/// Whether `path` lies in `folder` or in a folder below it.
bool isInFolder(const std::string& path, const std::string& folder);

/// The rule of the module that `path` lies in, or nothing.
const ModuleRule* ruleFor(const std::string& path, const std::vector<ModuleRule>& rules);

/// The include directives of a C++ source, in order. Directives inside comments do not count.
std::vector<Include> includesOf(std::string_view source);

/// Checks one source file. `file` is its path from the root, with forward slashes; it decides which module's
/// rule holds. A file outside every module is itself a violation.
std::vector<Violation> checkFile(const std::string& file, std::string_view source,
                                 const std::vector<ModuleRule>& rules);

/// Checks every C and C++ file under `root`, except in the top-level folders named in `skippedFolders` and in
/// hidden ones. A module of `rules` without any file is a violation, so that a moved folder cannot go
/// unchecked.
std::vector<Violation> checkTree(const std::filesystem::path& root, const std::vector<ModuleRule>& rules,
                                 const std::set<std::string>& skippedFolders);

/// Whether `header` (without brackets) belongs to the C++20 standard library.
bool isStandardHeader(const std::string& header);

} // namespace Project
