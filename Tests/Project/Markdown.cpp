#include "Tests/Project/Markdown.h"

namespace Project {

std::vector<std::string> codeBlocks(const std::string& markdown, const std::string& language) {
    const std::string opening = "```" + language + "\n";
    std::vector<std::string> blocks;
    for (auto begin = markdown.find(opening); begin != std::string::npos;) {
        const auto code = begin + opening.size();
        const auto end = markdown.find("```", code);
        if (end == std::string::npos)
            break;
        blocks.push_back(markdown.substr(code, end - code));
        begin = markdown.find(opening, end + 3);
    }
    return blocks;
}

} // namespace Project
