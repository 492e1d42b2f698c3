#include "Tests/Project/Markdown.h"
#include "Tests/Project/SourceTree.h"

#include <gtest/gtest.h>

using namespace Project;

namespace {

const std::filesystem::path root = KIVUICORE_SOURCE_ROOT;

} // namespace

TEST(Readme, ItsSampleIsTheOneThatIsBuiltAndRun) {
    const std::string sample = contentsOf(root / "Docs/examples/overlay.cpp");
    ASSERT_FALSE(sample.empty());
    EXPECT_EQ(codeBlocks(contentsOf(root / "README.md"), "cpp"), std::vector<std::string>{sample});
}

TEST(Readme, ItsPictureIsThere) {
    ASSERT_NE(contentsOf(root / "README.md").find("Docs/player.png"), std::string::npos);
    EXPECT_TRUE(contentsOf(root / "Docs/player.png").starts_with("\x89PNG"));
}
