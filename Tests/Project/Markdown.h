#pragma once

#include <string>
#include <vector>

namespace Project {

/// The texts of the code blocks in `language`, in their order.
std::vector<std::string> codeBlocks(const std::string& markdown, const std::string& language);

} // namespace Project
