#include "Tests/Project/SourceTree.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

using namespace Project;

namespace {

const std::filesystem::path root = KIVUICORE_SOURCE_ROOT;

/// Whether `list`, the text of a CMakeLists.txt, names `file` as a word of its own.
bool names(const std::string& list, const std::string& file) {
    std::string spaced = list;
    std::replace_if(
        spaced.begin(), spaced.end(), [](char each) { return each == '(' || each == ')'; }, ' ');
    std::istringstream words(spaced);
    for (std::string word; words >> word;) {
        if (word == file)
            return true;
    }
    return false;
}

/// The innermost folder around `file` that has a CMakeLists.txt.
std::filesystem::path buildFolderOf(const std::filesystem::path& file) {
    std::filesystem::path folder = file.parent_path();
    while (!std::filesystem::exists(root / folder / "CMakeLists.txt"))
        folder = folder.parent_path();
    return folder;
}

} // namespace

TEST(SourceList, AFileCountsAsNamedOnlyByItsWholeName) {
    EXPECT_TRUE(names("kivuicore_module(A SOURCES B.cpp HEADERS Deep/B.h)", "B.cpp"));
    EXPECT_TRUE(names("kivuicore_module(A SOURCES B.cpp HEADERS Deep/B.h)", "Deep/B.h"));
    EXPECT_FALSE(names("kivuicore_module(A SOURCES B.cpp HEADERS Deep/B.h)", "B.h"));
    EXPECT_FALSE(names("kivuicore_module(A SOURCES AB.cpp)", "B.cpp"));
}

TEST(SourceList, EveryFileIsBuiltByItsFolder) {
    const auto sources = sourcesUnder(root, {"build"});
    ASSERT_FALSE(sources.empty());
    for (const std::string& source : sources) {
        const bool isTestHeader = source.starts_with("Tests/") && source.ends_with(".h");
        const bool isConsumer = source.starts_with("Tests/Project/Consumers/");
        if (isTestHeader || isConsumer)
            continue;
        const auto folder = buildFolderOf(source);
        const auto name = std::filesystem::path(source).lexically_relative(folder.empty() ? "." : folder);
        EXPECT_TRUE(names(contentsOf(root / folder / "CMakeLists.txt"), name.generic_string()))
            << source << " is not listed in " << (folder / "CMakeLists.txt").generic_string();
    }
}
