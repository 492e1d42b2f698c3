#include "KivUICore/UIComponent/PopOverMenu.h"
#include "Tests/KivUICore/Menus.h"

#include <algorithm>
#include <utility>

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;

struct Deed {
    std::string callback;
    std::string action;
};

class PopOverMenuReentrancyTest : public MenuTest, public testing::WithParamInterface<Deed> {
protected:
    void act() {
        const std::string& action = GetParam().action;
        if (action == "tear down") {
            controller->view()->removeFromSuperview();
            controller = nullptr;
            menu = nullptr;
        } else if (action == "change entries") {
            menu->setButtons(entries({"x"}));
        } else if (action == "drop entries") {
            menu->setButtons(std::nullopt);
        } else if (action == "replace observer") {
            menu->setObserver(other);
            watcher = nullptr;
        } else if (action == "show again") {
            show(*menu);
        } else {
            menu->dismissViewControllerAnimated(true, nullptr);
        }
    }

    Story others;
    std::shared_ptr<Watcher> other = make<Watcher>(others);
    std::shared_ptr<PopOverMenu> menu = makeMenu({"a", "b", "c"});
};

TEST_P(PopOverMenuReentrancyTest, DoesNoHarm) {
    const std::weak_ptr<PopOverMenu> weak = menu;
    bool isFirst = true;
    watcher->reaction = [&](const std::string& operation) {
        if (operation.rfind(GetParam().callback, 0) == 0 && std::exchange(isFirst, false)) {
            act();
        }
    };
    testing::internal::CaptureStderr();
    show(*menu);
    const bool choosesRow = GetParam().callback == "onPopOverButtonPress";
    host.tap(choosesRow ? inRow(0) : outside);
    host.advance(1.0);
    const std::string warnings = testing::internal::GetCapturedStderr();
    EXPECT_FALSE(isFirst);
    if (GetParam().action == "tear down") {
        EXPECT_EQ(menu, nullptr);
        EXPECT_TRUE(weak.expired());
        EXPECT_TRUE(host.window()->subviews().empty());
        return;
    }
    const bool isAgain = GetParam().action == "show again" && GetParam().callback == "onPopOverDismiss";
    EXPECT_EQ(isShown(*menu), isAgain);
    EXPECT_EQ(warnings.empty(), GetParam().action != "show again" || isAgain);
    // Whatever was done, the menu can be shown and chosen from.
    menu->dismissViewControllerAnimated(false, nullptr);
    menu->setButtons(entries({"a", "b"}));
    show(*menu);
    host.tap(inRow(1));
    EXPECT_EQ((GetParam().action == "replace observer" ? others : story).back(), "onPopOverButtonPress: 1");
}

std::vector<Deed> everyDeed() {
    std::vector<Deed> deeds;
    for (const char* callback : {"popOverShouldPresent", "onPopOverButtonPress", "onPopOverDismiss"}) {
        for (const char* action :
             {"tear down", "change entries", "drop entries", "replace observer", "show again", "dismiss"}) {
            deeds.push_back({callback, action});
        }
    }
    return deeds;
}

INSTANTIATE_TEST_SUITE_P(Every, PopOverMenuReentrancyTest, testing::ValuesIn(everyDeed()),
                         [](const testing::TestParamInfo<Deed>& each) {
                             std::string name = each.param.callback + "_" + each.param.action;
                             std::replace(name.begin(), name.end(), ' ', '_');
                             return name;
                         });

} // namespace
