#include "Tests/Project/SourceTree.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace Project {

namespace {

bool isSource(const std::filesystem::path& path) {
    static const std::set<std::string> extensions{".h", ".hh", ".hpp", ".hxx", ".inl", ".ipp", ".inc", ".tpp",
                                                  ".c", ".cc", ".cpp", ".cxx", ".m",   ".mm",  ".def"};
    return extensions.contains(path.extension().string());
}

} // namespace

std::vector<std::string> sourcesUnder(const std::filesystem::path& root,
                                      const std::set<std::string>& skippedFolders) {
    std::vector<std::string> sources;
    for (auto entry = std::filesystem::recursive_directory_iterator(root);
         entry != std::filesystem::recursive_directory_iterator(); ++entry) {
        const std::string name = entry->path().filename().string();
        const bool isSkipped = entry.depth() == 0 && skippedFolders.contains(name);
        if (entry->is_directory() && (isSkipped || name.starts_with('.'))) {
            entry.disable_recursion_pending();
        } else if (entry->is_regular_file() && isSource(entry->path())) {
            sources.push_back(entry->path().lexically_relative(root).generic_string());
        }
    }
    std::sort(sources.begin(), sources.end());
    return sources;
}

std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream contents;
    contents << stream.rdbuf();
    return contents.str();
}

} // namespace Project
