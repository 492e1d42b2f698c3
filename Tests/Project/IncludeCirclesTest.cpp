#include "Tests/Project/IncludeCircles.h"

#include "Tests/Project/ScratchFolder.h"

using namespace Project;

namespace {

const std::vector<Circle> defended{
    {{"Platform/Foundation/Class", "Platform/Foundation/ClassBuilder", "Platform/Foundation/Encoding",
      "Platform/Foundation/Message", "Platform/Foundation/NSObject", "Platform/Foundation/Protocol"},
     "objects, their classes and messages are one idea: an object has a class, a class makes objects, and "
     "both are sent messages that carry objects"},
    {{"Platform/UIKit/UIPopoverPresentationController", "Platform/UIKit/UIPresentationController",
      "Platform/UIKit/UIViewController"},
     "a view controller gives out what it is presented with, and that gives out the view controllers, both "
     "also by name, for which each must know the other"},
};

class CircleTree : public ScratchFolder {
protected:
    std::vector<Circle> circles() const { return includeCircles(root, rules); }

    std::vector<ModuleRule> rules{{"Lower", {}, ModuleRule::External::StandardLibraryOnly, {}},
                                  {"Upper", {"Lower"}, ModuleRule::External::StandardLibraryOnly, {}}};
};

using Names = std::set<std::string>;

} // namespace

TEST_F(CircleTree, AnOrderHasNoCircle) {
    write("Lower/A.h", "");
    write("Lower/A.cpp", "#include \"Lower/A.h\"\n");
    write("Lower/B.h", "#include \"Lower/A.h\"\n");
    write("Upper/A.h", "#include \"Lower/A.h\"\n#include \"Lower/B.h\"\n");
    EXPECT_TRUE(circles().empty());
}

TEST_F(CircleTree, AHeaderAndItsSourceAreOneWhereverTheyLie) {
    write("Lower/A.h", "");
    write("Lower/Room/A.cpp", "#include \"Lower/Room/B.h\"\n");
    write("Lower/Room/B.h", "#include \"Lower/A.h\"\n");
    ASSERT_EQ(circles().size(), 1u);
    EXPECT_EQ(circles().front().units, (Names{"Lower/A", "Lower/B"}));
}

TEST_F(CircleTree, ACircleIsFoundOverSeveralStepsAndOnce) {
    write("Lower/A.h", "#include \"Lower/B.h\"\n");
    write("Lower/B.h", "#include \"Lower/C.h\"\n");
    write("Lower/C.cpp", "#include \"Lower/A.h\"\n");
    write("Lower/Outside.h", "#include \"Lower/A.h\"\n");
    ASSERT_EQ(circles().size(), 1u);
    EXPECT_EQ(circles().front().units, (Names{"Lower/A", "Lower/B", "Lower/C"}));
}

TEST_F(CircleTree, ACircleAcrossModulesIsFoundOnceToo) {
    write("Lower/A.h", "#include \"Upper/A.h\"\n");
    write("Upper/A.h", "#include \"Lower/A.h\"\n");
    ASSERT_EQ(circles().size(), 1u);
    EXPECT_EQ(circles().front().units, (Names{"Lower/A", "Upper/A"}));
}

TEST_F(CircleTree, CirclesApartAreFoundApart) {
    write("Lower/A.h", "#include \"Lower/B.h\"\n");
    write("Lower/B.h", "#include \"Lower/A.h\"\n#include \"Lower/C.h\"\n");
    write("Lower/C.h", "#include \"Lower/D.h\"\n");
    write("Lower/D.h", "#include \"Lower/C.h\"\n");
    ASSERT_EQ(circles().size(), 2u);
    EXPECT_EQ(circles().front().units, (Names{"Lower/A", "Lower/B"}));
    EXPECT_EQ(circles().back().units, (Names{"Lower/C", "Lower/D"}));
}

TEST(IncludeCircles, ADefenceHoldsForExactlyOneCircleAndWithAReason) {
    const Circle found{{"A", "B"}, ""};
    EXPECT_TRUE(objections({found}, {{{"A", "B"}, "why"}}).empty());
    EXPECT_EQ(objections({found}, {}).size(), 1u);
    EXPECT_EQ(objections({found}, {{{"A", "B"}, ""}}).size(), 1u);
    EXPECT_EQ(objections({}, {{{"A", "B"}, "why"}}).size(), 1u);
    EXPECT_EQ(objections({found}, {{{"A", "B", "C"}, "why"}}).size(), 2u);
}

TEST(IncludeCircles, ThisProjectHasNoneButThoseDefended) {
    for (const std::string& objection :
         objections(includeCircles(KIVUICORE_SOURCE_ROOT, moduleRules()), defended)) {
        ADD_FAILURE() << objection;
    }
}
