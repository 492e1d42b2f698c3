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

/// A menu that says when it goes. Watched otherwise, its memory would stay, and use of it go unnoticed.
class MortalMenu : public PopOverMenu {
public:
    bool* isGone = nullptr;

protected:
    void dealloc() override {
        *isGone = true;
        PopOverMenu::dealloc();
    }
};

class PopOverMenuReentrancyTest : public MenuTest, public testing::WithParamInterface<Deed> {
protected:
    PopOverMenuReentrancyTest() {
        auto mortal = make<MortalMenu>(CGRectMake(0, 0, 200, 132), entries({"a", "b", "c"}), watcher);
        mortal->isGone = &isGone;
        menu = std::move(mortal);
    }

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
    bool isGone = false;
    std::shared_ptr<PopOverMenu> menu;
};

TEST_P(PopOverMenuReentrancyTest, DoesNoHarm) {
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
        EXPECT_TRUE(isGone);
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
