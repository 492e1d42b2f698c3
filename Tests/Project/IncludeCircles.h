#pragma once

#include "Tests/Project/IncludeRules.h"

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace Project {

/// Sources that know each other in a circle. `reason` says why that stays, of one that is defended.
struct Circle {
    /// By module and name, "Platform/UIKit/UIView": a header and the source of the same name are one,
    /// whatever rooms they lie in.
    std::set<std::string> units;
    std::string reason;
};

/// All circles among the files under `root` that belong to a module, without a reason each.
std::vector<Circle> includeCircles(const std::filesystem::path& root, const std::vector<ModuleRule>& rules);

/// Each of `found` that is not among the defended ones, and each defended one that was not found.
std::vector<std::string> objections(const std::vector<Circle>& found, const std::vector<Circle>& defended);

} // namespace Project
