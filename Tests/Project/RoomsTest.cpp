#include "Tests/Project/Rooms.h"

#include "Tests/Project/ScratchFolder.h"

using namespace Project;

namespace {

const RoomedModule uiKit{
    .folder = "Platform/UIKit",
    .publicPrefix = "UI",
    .testFolder = "Tests/UIKit",
    .allowances =
        {
            {"Platform/UIKit/UIView.h", "Platform/UIKit/Animation/AnimatedObject.h",
             "a view is one of what animations move"},
            {"Platform/UIKit/UIView.h", "Platform/UIKit/Animation/PropertyAnimations.h",
             "a view holds what of it is on its way, and drawing asks each view each time"},
        },
};

/// A module `Kit` with the rooms Big and Small. The source of UIBig lies in Big.
class RoomTree : public ScratchFolder {
protected:
    void SetUp() override {
        ScratchFolder::SetUp();
        write("Kit/UIBig.h", "");
        write("Kit/Big/UIBig.cpp", "#include \"Kit/Small/Small.h\"\n");
        write("Kit/Big/Big.h", "");
        write("Kit/Small/Small.h", "");
    }

    /// All reasons, each with its file.
    std::vector<std::string> reasons() const {
        std::vector<std::string> result;
        for (const Violation& each : checkRooms(root, kit)) {
            result.push_back(each.file + ": " + each.reason);
        }
        return result;
    }

    RoomedModule kit{"Kit", "UI", "Tests/Kit", {}};
};

using Reasons = std::vector<std::string>;

} // namespace

TEST_F(RoomTree, RoomsMayKnowEachOther) { EXPECT_EQ(reasons(), Reasons()); }

TEST_F(RoomTree, APublicHeaderLooksIntoTheRoomOfItsOwnSourceAlone) {
    write("Kit/UIBig.h", "#include \"Kit/Big/Big.h\"\n");
    EXPECT_EQ(reasons(), Reasons());
    write("Kit/UIBig.h", "#include \"Kit/Small/Small.h\"\n");
    EXPECT_EQ(reasons(), Reasons{"Kit/UIBig.h: must not look into the room Small"});
    write("Kit/UIBig.h", "");
    write("Kit/UIBigDelegate.h", "#include \"Kit/Big/Big.h\"\n");
    EXPECT_EQ(reasons(), Reasons{"Kit/UIBigDelegate.h: must not look into the room Big"});
}

TEST_F(RoomTree, OtherModulesLookIntoNoRoom) {
    write("Upper/A.cpp", "#include \"Kit/UIBig.h\"\n#include \"Kit/Big/Big.h\"\n");
    EXPECT_EQ(reasons(), Reasons{"Upper/A.cpp: must not look into the room Big"});
}

TEST_F(RoomTree, ATestLooksIntoTheRoomThatItTestsAlone) {
    write("Tests/Kit/Big/BigTest.cpp", "#include \"Kit/Big/Big.h\"\n");
    EXPECT_EQ(reasons(), Reasons());
    write("Tests/Kit/Small/SmallTest.cpp", "#include \"Kit/Big/Big.h\"\n");
    write("Tests/Kit/KitTest.cpp", "#include \"Kit/Big/Big.h\"\n");
    write("Tests/Upper/Big/BigTest.cpp", "#include \"Kit/Big/Big.h\"\n");
    EXPECT_EQ(reasons(), (Reasons{"Tests/Kit/KitTest.cpp: must not look into the room Big",
                                  "Tests/Kit/Small/SmallTest.cpp: must not look into the room Big",
                                  "Tests/Upper/Big/BigTest.cpp: must not look into the room Big"}));
}

TEST_F(RoomTree, AnAllowanceHoldsForOneHeaderAndOnlyWhileItIsNeeded) {
    kit.allowances.push_back({"Kit/UIBig.h", "Kit/Small/Small.h", "why"});
    EXPECT_EQ(reasons(), Reasons{"Kit/UIBig.h: is allowed Kit/Small/Small.h and does not include it"});
    write("Kit/UIBig.h", "#include \"Kit/Small/Small.h\"\n");
    EXPECT_EQ(reasons(), Reasons());
    write("Kit/UIBig.h", "#include \"Kit/Small/Small.h\"\n#include \"Kit/Small/Other.h\"\n");
    EXPECT_EQ(reasons(), Reasons{"Kit/UIBig.h: must not look into the room Small"});
}

TEST_F(RoomTree, OutsideTheRoomsLieOnlyPublicHeaders) {
    write("Kit/UISmall.cpp", "");
    write("Kit/Small.h", "");
    EXPECT_EQ(reasons(), (Reasons{"Kit/Small.h: is no public header by its name",
                                  "Kit/UISmall.cpp: is a source outside every room"}));
}

TEST(Rooms, EachAllowanceHasAReason) {
    for (const RoomedModule::Allowance& each : uiKit.allowances) {
        EXPECT_FALSE(each.reason.empty()) << each.file;
    }
}

TEST(Rooms, ThisProjectKeepsThem) {
    EXPECT_EQ(roomOf("Platform/UIKit/View/UIView.cpp", uiKit), "View");
    for (const Violation& violation : checkRooms(KIVUICORE_SOURCE_ROOT, uiKit)) {
        ADD_FAILURE() << violation.file << ":" << violation.line << ": " << violation.reason;
    }
}
