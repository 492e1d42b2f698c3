#include "Tests/Project/HeaderLists.h"

#include "Tests/Project/ScratchFolder.h"

using namespace Project;

namespace {

using Files = std::set<std::string>;

class HeaderTree : public ScratchFolder {
protected:
    HeaderLists lists{{"A/Public.h"}, {"A/Needed.h"}, {"A/Private.h"}};
};

} // namespace

TEST(HeaderLists, EachListEndsAtTheNextWordThatIsNoHeader) {
    HeaderLists lists;
    addHeaderLists(lists, "A",
                   "kivuicore_module(X INSTALLED SOURCES B.cpp HEADERS C.h D.h NEEDED_HEADERS Room/E.h\n"
                   "  PRIVATE_HEADERS F.h LINK G.h)\n");
    EXPECT_EQ(lists.publicFace, (Files{"A/C.h", "A/D.h"}));
    EXPECT_EQ(lists.needed, (Files{"A/Room/E.h"}));
    EXPECT_EQ(lists.notInstalled, (Files{"A/F.h"}));
}

TEST_F(HeaderTree, WhatIsInstalledNeedsNothingThatIsNot) {
    write("A/Public.h", "#include \"A/Needed.h\"\n");
    write("A/Needed.h", "#include <vector>\n");
    EXPECT_TRUE(checkInstalled(root, lists).empty());
    write("A/Needed.h", "#include <vector>\n#include \"A/Private.h\"\n");
    ASSERT_EQ(checkInstalled(root, lists).size(), 1u);
    EXPECT_EQ(checkInstalled(root, lists).front().file, "A/Needed.h");
    EXPECT_EQ(checkInstalled(root, lists).front().line, 2);
}

TEST_F(HeaderTree, WhatNoPublicHeaderLeadsToIsNotInstalled) {
    write("A/Public.h", "");
    ASSERT_EQ(checkInstalled(root, lists).size(), 1u);
    EXPECT_EQ(checkInstalled(root, lists).front().file, "A/Needed.h");
}

TEST(HeaderLists, ThisProjectInstallsThePublicFaceAndWhatItNeeds) {
    const HeaderLists lists = installedHeaderLists(KIVUICORE_SOURCE_ROOT, moduleRules());
    EXPECT_TRUE(lists.publicFace.contains("Platform/UIKit/UIView.h"));
    EXPECT_TRUE(lists.notInstalled.contains("Platform/UIKit/View/Autoresizing.h"));
    for (const Violation& violation : checkInstalled(KIVUICORE_SOURCE_ROOT, lists)) {
        ADD_FAILURE() << violation.file << ":" << violation.line << ": " << violation.reason;
    }
}
