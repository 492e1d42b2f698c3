#include "Tests/Project/SourceTree.h"

#include <gtest/gtest.h>

using namespace Project;

namespace {

const std::filesystem::path root = KIVUICORE_SOURCE_ROOT;

/// The text of the first code block in `language`; empty when there is none.
std::string codeBlock(const std::string& markdown, const std::string& language) {
    const std::string opening = "```" + language + "\n";
    const auto begin = markdown.find(opening);
    if (begin == std::string::npos)
        return "";
    const auto code = begin + opening.size();
    const auto end = markdown.find("```", code);
    return markdown.substr(code, end == std::string::npos ? end : end - code);
}

} // namespace

TEST(Readme, CodeBlocksAreFoundByTheirLanguage) {
    EXPECT_EQ(codeBlock("a\n```sh\nls\n```\n```cpp\nint a;\nint b;\n```\n", "cpp"), "int a;\nint b;\n");
    EXPECT_EQ(codeBlock("```sh\nls\n```\n", "cpp"), "");
}

TEST(Readme, ItsSampleIsTheOneThatIsBuiltAndRun) {
    const std::string sample = contentsOf(root / "Docs/examples/overlay.cpp");
    ASSERT_FALSE(sample.empty());
    EXPECT_EQ(codeBlock(contentsOf(root / "README.md"), "cpp"), sample);
}

TEST(Readme, ItsPictureIsThere) {
    ASSERT_NE(contentsOf(root / "README.md").find("Docs/player.png"), std::string::npos);
    EXPECT_TRUE(contentsOf(root / "Docs/player.png").starts_with("\x89PNG"));
}
