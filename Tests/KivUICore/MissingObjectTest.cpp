#include "Hosts/Headless/HeadlessHost.h"
#include "Tests/KivUICore/HostView.h"
#include "Tests/KivUICore/Menus.h"
#include "Tests/KivUICore/Stops.h"

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UIView;

#define EXPECT_MISSING(statement, what, operation, className)                                                \
    EXPECT_STOP_PRINTING(statement, std::string("Fatal error: No ") + (what) + " for '" + (operation) +      \
                                        "' of class '" + (className) + "'\n")

const std::shared_ptr<UIView> noView;
constexpr CGRect frame{{0.0, 0.0}, {320.0, 40.0}};

/// A bar whose container view a subclass may lose.
class LosingBar : public TopBar {
public:
    bool isLost = false;

    std::shared_ptr<UIView> view() const override { return isLost ? nullptr : TopBar::view(); }
};

TEST(MissingObjectDeathTest, ABarIsNotMadeWithoutAHostView) {
    EXPECT_MISSING(make<KivBar>(noView, frame), "host view", "init(superview:frame:)", "KivUICore.KivBar");
    EXPECT_MISSING(make<KivBar>(noView, frame, make<UIKit::UIColor>(0.0, 1.0)), "host view",
                   "init(superview:frame:backgroundColor:)", "KivUICore.KivBar");
    EXPECT_MISSING(make<KivBar>(noView, frame, imageOf({1.0, 1.0})), "host view",
                   "init(superview:frame:backgroundImage:)", "KivUICore.KivBar");
    EXPECT_MISSING(make<KivBar>(noView, make<UIView>()), "host view", "init(superview:view:)",
                   "KivUICore.KivBar");
    EXPECT_MISSING(make<TopBar>(noView), "host view", "init(superview:)", "KivUICore.TopBar");
    EXPECT_MISSING(make<TopBar>(noView, 60.0), "host view", "init(superview:height:)", "KivUICore.TopBar");
    EXPECT_MISSING(make<BottomBar>(noView), "host view", "init(superview:)", "KivUICore.BottomBar");
    EXPECT_MISSING(make<BottomBar>(noView, 60.0), "host view", "init(superview:height:)",
                   "KivUICore.BottomBar");
    EXPECT_MISSING(Class::named("KivUICore.TopBar")->alloc()->send<bool>("initWithSuperview:", noView),
                   "host view", "init(superview:)", "KivUICore.TopBar");
}

TEST(MissingObjectDeathTest, ABarNeedsItsViewsAndItsElements) {
    const auto bar = make<TopBar>(make<UIView>(frame));
    EXPECT_MISSING(make<KivBar>(make<UIView>(), noView), "container view", "init(superview:view:)",
                   "KivUICore.KivBar");
    EXPECT_MISSING(bar->setSuperview(nullptr), "host view", "setSuperview:", "KivUICore.TopBar");
    EXPECT_MISSING(bar->setView(nullptr), "container view", "setView:", "KivUICore.TopBar");
    EXPECT_MISSING(bar->setElemets(KivBar::Elemets{nullptr}), "element", "setElemets", "KivUICore.TopBar");
}

TEST(MissingObjectDeathTest, ABarWhoseContainerViewIsLostSaysWhatItIsFor) {
    const KivUICore::Headless::HeadlessHost host({320.0, 480.0});
    const auto bar = make<LosingBar>(host.window());
    bar->isLost = true;
    EXPECT_MISSING(bar->hide(), "container view", "hide", "KivUICore.TopBar");
    EXPECT_MISSING(bar->show(), "container view", "show", "KivUICore.TopBar");
    EXPECT_MISSING(bar->setBackgroundColor(nullptr), "container view",
                   "setBackgroundColor:", "KivUICore.TopBar");
    EXPECT_MISSING(bar->setBackgroundImage(nullptr), "container view",
                   "setBackgroundImage:", "KivUICore.TopBar");
    EXPECT_MISSING(bar->updateBarFrameWithFrame(frame), "container view",
                   "updateBarFrameWithFrame:", "KivUICore.TopBar");
    EXPECT_MISSING(bar->addElementToView(make<UIComponent>(), 1), "container view",
                   "addElementToView:size:", "KivUICore.TopBar");
}

TEST(MissingObjectDeathTest, NoComponentIsNotPlaced) {
    const auto bar = make<TopBar>(make<UIView>(frame));
    EXPECT_MISSING(bar->addElementToView(nullptr, 2), "component",
                   "addElementToView:size:", "KivUICore.TopBar");
    EXPECT_MISSING(bar->send("addElementToView:size:", nullptr, 2), "component",
                   "addElementToView:size:", "KivUICore.TopBar");
    EXPECT_MISSING(UIElement(nullptr, 2), "component", "init(view:size:)", "KivUICore.UIElement");
}

TEST(MissingObjectDeathTest, ASeekBarIsNotMadeWithoutAPlayer) {
    EXPECT_MISSING(make<SeekBar>(make<UIKit::UISlider>(), make<Watcher>(), nullptr), "player",
                   "init(view:observer:player:)", "KivUICore.SeekBar");
}

using MissingAnchorDeathTest = MenuTest;

TEST_F(MissingAnchorDeathTest, AMenuNeedsAnAnchorAndToldOfAChoiceItsTableAndRow) {
    const auto menu = makeMenu({"a"});
    EXPECT_MISSING(menu->showPopOver(nullptr, controller, nullptr), "anchor",
                   "showPopOver:overViewController:color:", "KivUICore.PopOverMenu");
    EXPECT_MISSING(menu->showPopOver(nullptr, nullptr, nullptr), "anchor",
                   "showPopOver:overViewController:color:", "KivUICore.PopOverMenu");
    EXPECT_MISSING(menu->tableViewDidSelectRowAtIndexPath(nullptr, row(0)), "table",
                   "tableView:didSelectRowAtIndexPath:", "KivUICore.PopOverMenu");
    EXPECT_MISSING(menu->tableViewDidSelectRowAtIndexPath(tableOf(*menu), nullptr), "index path",
                   "tableView:didSelectRowAtIndexPath:", "KivUICore.PopOverMenu");
    EXPECT_MISSING(menu->tableViewCellForRowAtIndexPath(tableOf(*menu), nullptr), "index path",
                   "tableView:cellForRowAtIndexPath:", "KivUICore.PopOverMenu");
}

} // namespace
