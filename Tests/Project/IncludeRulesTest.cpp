#include "Tests/Project/IncludeRules.h"

#include "Tests/Project/ScratchFolder.h"

#include <gtest/gtest.h>

using namespace Project;

namespace {

std::string reasonFor(const std::string& file, const std::string& source) {
    const auto violations = checkFile(file, source, moduleRules());
    return violations.empty() ? "" : violations.front().reason;
}

bool isAllowed(const std::string& file, const std::string& source) {
    return checkFile(file, source, moduleRules()).empty();
}

/// Two modules, one above the other.
class IncludeTree : public ScratchFolder {
protected:
    std::vector<ModuleRule> rules{{"Lower", {}, ModuleRule::External::StandardLibraryOnly, {}},
                                  {"Upper", {"Lower"}, ModuleRule::External::StandardLibraryOnly, {}}};
};

} // namespace

TEST(IncludeRules, DirectivesAreFoundInEverySpelling) {
    const auto includes = includesOf("#include <vector>\n"
                                     "  #  include\t\"KivCore/KivPlayer.h\" // why\n"
                                     "#if X\n#import <string>\n#endif\n"
                                     "#include HEADER\n");
    ASSERT_EQ(includes.size(), 4u);
    EXPECT_EQ(includes[0].target, "vector");
    EXPECT_EQ(includes[0].form, Include::Form::Angled);
    EXPECT_EQ(includes[1].target, "KivCore/KivPlayer.h");
    EXPECT_EQ(includes[1].form, Include::Form::Quoted);
    EXPECT_EQ(includes[1].line, 2);
    EXPECT_EQ(includes[2].target, "string");
    EXPECT_EQ(includes[2].line, 4);
    EXPECT_EQ(includes[3].form, Include::Form::Other);
}

TEST(IncludeRules, CommentsHoldNoDirectives) {
    EXPECT_TRUE(
        includesOf("// #include <SDL.h>\n/*\n#include <SDL.h>\n*/\n/* open\n#include <SDL.h>").empty());
}

TEST(IncludeRules, CommentMarksInsideLiteralsHideNothing) {
    const auto includes = includesOf("auto url = \"http://*\"; auto glob = \"/*\";\n#include <SDL.h>\n");
    ASSERT_EQ(includes.size(), 1u);
    EXPECT_EQ(includes.front().line, 2);
}

TEST(IncludeRules, AQuoteInsideACommentHidesNothing) {
    EXPECT_EQ(includesOf("// don't \"\n/* \" */\n#include <SDL.h>\n").size(), 1u);
}

TEST(IncludeRules, AModuleMayKnowItselfAndWhatStandsBelow) {
    EXPECT_TRUE(isAllowed("Platform/UIKit/UIView.cpp", "#include \"Platform/UIKit/UIView.h\"\n"
                                                       "#include \"Platform/CoreGraphics/CGGeometry.h\"\n"
                                                       "#include \"Platform/Foundation/NSObject.h\"\n"
                                                       "#include <vector>\n"));
    EXPECT_TRUE(isAllowed("KivUICore/UIComponent/Button.cpp", "#include \"Platform/UIKit/UIButton.h\""));
    EXPECT_TRUE(
        isAllowed("Player/Desktop/main.cpp", "#include <mpv/client.h>\n#include \"Hosts/SDL/Window.h\""));
}

TEST(IncludeRules, ArrowsAgainstTheOrderAreRefused) {
    EXPECT_EQ(reasonFor("Platform/Foundation/A.h", "#include \"Platform/CoreGraphics/CGGeometry.h\""),
              "Platform/Foundation must not know Platform/CoreGraphics");
    EXPECT_EQ(reasonFor("Platform/CoreGraphics/A.h", "#include \"Platform/Foundation/NSObject.h\""),
              "Platform/CoreGraphics must not know Platform/Foundation");
    EXPECT_EQ(reasonFor("Platform/UIKit/A.h", "#include \"Platform/MediaPlayer/MPVolumeView.h\""),
              "Platform/UIKit must not know Platform/MediaPlayer");
    EXPECT_EQ(reasonFor("KivCore/A.h", "#include \"Platform/UIKit/UIView.h\""),
              "KivCore must not know Platform/UIKit");
    EXPECT_EQ(reasonFor("Platform/MediaPlayer/A.h", "#include \"KivCore/KivPlayer.h\""),
              "Platform/MediaPlayer must not know KivCore");
    EXPECT_EQ(reasonFor("KivUICore/A.cpp", "#include \"Hosts/Headless/HeadlessHost.h\""),
              "KivUICore must not know Hosts/Headless");
    EXPECT_EQ(reasonFor("Hosts/SDL/A.cpp", "#include \"KivUICore/KivBar.h\""),
              "Hosts/SDL must not know KivUICore");
    EXPECT_EQ(reasonFor("Hosts/Cairo/A.cpp", "#include \"Hosts/SDL/DesktopWindow.h\""),
              "Hosts/Cairo must not know Hosts/SDL");
    EXPECT_EQ(reasonFor("Hosts/Headless/A.cpp", "#include \"Hosts/SDL/Window.h\""),
              "Hosts/Headless must not know Hosts/SDL");
    EXPECT_EQ(reasonFor("Player/Overlay/A.cpp", "#include \"Hosts/Headless/HeadlessHost.h\""),
              "Player/Overlay must not know Hosts/Headless");
}

TEST(IncludeRules, ForeignHeadersAreRefusedWhereOnlyTheStandardLibraryIsAllowed) {
    for (const std::string folder :
         {"Platform/Foundation", "Platform/CoreGraphics", "Platform/UIKit", "Platform/MediaPlayer", "KivCore",
          "KivUICore", "Hosts/Headless", "Player/Overlay"}) {
        for (const std::string header :
             {"unistd.h", "math.h", "SDL2/SDL.h", "sys/time.h", "experimental/any"}) {
            EXPECT_EQ(reasonFor(folder + "/A.cpp", "#include <" + header + ">"),
                      "<" + header + "> is not for " + folder);
        }
    }
}

TEST(IncludeRules, TheHostWithAWindowKnowsItsLibrariesAndNoPlayer) {
    EXPECT_TRUE(isAllowed("Hosts/SDL/A.cpp", "#include <SDL.h>\n#include <cairo.h>\n#include <SDL_opengl.h>\n"
                                             "#include \"Hosts/Cairo/OverlaySurface.h\"\n"));
    EXPECT_EQ(reasonFor("Hosts/SDL/A.cpp", "#include <mpv/client.h>"), "<mpv/client.h> is not for Hosts/SDL");
}

TEST(IncludeRules, TheHostThatDrawsKnowsNoWindowSystem) {
    EXPECT_TRUE(isAllowed("Hosts/Cairo/A.cpp", "#include <cairo.h>\n#include <pango/pangocairo.h>\n"
                                               "#include <glib.h>\n#include <fontconfig/fontconfig.h>\n"));
    for (const std::string header : {"SDL.h", "SDL_opengl.h", "GL/gl.h", "X11/Xlib.h"}) {
        EXPECT_EQ(reasonFor("Hosts/Cairo/A.cpp", "#include <" + header + ">"),
                  "<" + header + "> is not for Hosts/Cairo");
    }
}

TEST(IncludeRules, RoomsOfTheOverlayKnowTheFilmAndTheLooksAndNotEachOther) {
    EXPECT_TRUE(isAllowed("Player/Overlay/PlayerOverlay.cpp", "#include \"Player/Overlay/Bars/A.h\"\n"
                                                              "#include \"Player/Overlay/Film/A.h\"\n"
                                                              "#include \"Player/Overlay/Menus/A.h\"\n"
                                                              "#include \"Player/Overlay/Messages/A.h\"\n"));
    for (const std::string room : {"Bars", "Menus", "Messages"}) {
        const std::string file = "Player/Overlay/" + room + "/A.cpp";
        EXPECT_TRUE(isAllowed(file, "#include \"Player/Overlay/Looks/Icons.h\"\n"));
        EXPECT_EQ(reasonFor(file, "#include \"Player/Overlay/PlayerOverlay.h\""),
                  "Player/Overlay/" + room + " must not know Player/Overlay");
        EXPECT_TRUE(isAllowed(file, "#include \"Player/Overlay/Film/Playback.h\"\n"));
        EXPECT_EQ(reasonFor("Player/Overlay/Film/A.cpp", "#include \"Player/Overlay/" + room + "/A.h\""),
                  "Player/Overlay/Film must not know Player/Overlay/" + room);
        EXPECT_EQ(reasonFor("Player/Desktop/A.cpp", "#include \"Player/Overlay/" + room + "/A.h\""),
                  "Player/Desktop must not know Player/Overlay/" + room);
    }
    EXPECT_EQ(reasonFor("Player/Overlay/Bars/A.cpp", "#include \"Player/Overlay/Menus/A.h\""),
              "Player/Overlay/Bars must not know Player/Overlay/Menus");
}

TEST(IncludeRules, PathsThatDoNotStartAtTheRootAreRefused) {
    EXPECT_EQ(reasonFor("Platform/UIKit/UIView.cpp", "#include \"UIView.h\""),
              "\"UIView.h\" is not written from the repository's root");
    EXPECT_NE(reasonFor("Platform/UIKit/UIView.cpp", "#include \"Platform/UIKit/../Foundation/NSObject.h\""),
              "");
    EXPECT_NE(reasonFor("Platform/UIKit/UIView.cpp", "#include \"Tests/UIKit/Helper.h\""), "");
    EXPECT_NE(reasonFor("Platform/UIKit/UIView.cpp", "#include VIEW_HEADER"), "");
    EXPECT_NE(reasonFor("Platform/UIKit/UIView.cpp", "#include <Platform/UIKit/UIView.h>"), "");
}

TEST(IncludeRules, AFolderIsNotTakenForOneWhoseNameItBegins) {
    EXPECT_EQ(reasonFor("KivUICoreExtras/A.cpp", ""), "belongs to no module");
    EXPECT_EQ(reasonFor("Player/A.cpp", ""), "belongs to no module");
}

TEST_F(IncludeTree, ATreeThatKeepsTheOrderPasses) {
    write("Lower/A.h", "#include <vector>\n");
    write("Upper/Deep/B.cpp", "#include \"Lower/A.h\"\n");
    write("Tests/C.cpp", "#include <gtest/gtest.h>\n");
    EXPECT_TRUE(checkTree(root, rules, {"Tests"}).empty());
}

TEST_F(IncludeTree, AnArrowInADeepFolderIsFoundWithItsLine) {
    write("Lower/Deep/Deeper/A.inl", "\n#include \"Upper/B.h\"\n");
    write("Upper/B.h", "");
    const auto violations = checkTree(root, rules, {});
    ASSERT_EQ(violations.size(), 1u);
    EXPECT_EQ(violations.front().file, "Lower/Deep/Deeper/A.inl");
    EXPECT_EQ(violations.front().line, 2);
    EXPECT_EQ(violations.front().reason, "Lower must not know Upper");
}

TEST_F(IncludeTree, ASkippedNameCountsOnlyAtTheTop) {
    write("Lower/Tests/A.cpp", "#include <gtest/gtest.h>\n");
    write("Upper/B.h", "");
    EXPECT_EQ(checkTree(root, rules, {"Tests"}).size(), 1u);
}

TEST_F(IncludeTree, AModuleThatIsNotThereIsReported) {
    write("Lower/A.h", "");
    const auto violations = checkTree(root, rules, {});
    ASSERT_EQ(violations.size(), 1u);
    EXPECT_EQ(violations.front().file, "Upper");
}

TEST_F(IncludeTree, AFileOutsideEveryModuleIsReported) {
    write("Lower/A.h", "");
    write("Upper/B.h", "");
    write("Extra/C.cpp", "");
    const auto violations = checkTree(root, rules, {});
    ASSERT_EQ(violations.size(), 1u);
    EXPECT_EQ(violations.front().reason, "belongs to no module");
}

TEST(IncludeRules, ThisProjectKeepsThem) {
    for (const Violation& violation :
         checkTree(KIVUICORE_SOURCE_ROOT, moduleRules(), {"Tests", "Fuzz", "Benchmarks", "Docs", "build"}))
        ADD_FAILURE() << violation.file << ":" << violation.line << ": " << violation.reason;
}
