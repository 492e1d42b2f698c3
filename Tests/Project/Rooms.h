#pragma once

#include "Tests/Project/IncludeRules.h"

#include <string>
#include <vector>

namespace Project {

/// A module with rooms: folders of its own that hold its sources and its internal headers. The headers that
/// lie in none are its public face.
struct RoomedModule {
    /// A header of a room that one file includes although the rules forbid it.
    struct Allowance {
        std::string file;
        std::string header;
        std::string reason;
    };

    std::string folder;       ///< "Platform/UIKit"
    std::string publicPrefix; ///< What the names of public headers begin with: "UI".
    std::string testFolder;   ///< Has a folder for the tests of each room.
    std::vector<Allowance> allowances;
};

/// The room of `module` that `file` lies in; empty when it lies in none.
std::string roomOf(const std::string& file, const RoomedModule& module);

/// Checks all files of the project under `root`: sources lie in rooms, and headers in no room are public by
/// their names. A public header includes headers of that room alone in which its own source lies, a test of a
/// room those of that room, a file of any other module none. An allowance that nobody needs is a violation.
std::vector<Violation> checkRooms(const std::filesystem::path& root, const RoomedModule& module);

} // namespace Project
