#pragma once

#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/KivUICore.h"
#include "Platform/UIKit/UIImageView.h"
#include "Tests/KivUICore/HostView.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace KivUICoreTests {

inline std::shared_ptr<KivUICore::PopOverButton> entry(const std::string& text) {
    return Foundation::make<KivUICore::PopOverButton>(imageOf({10.0, 10.0}), text);
}

inline KivUICore::PopOverMenu::Buttons entries(const std::vector<std::string>& texts) {
    KivUICore::PopOverMenu::Buttons buttons;
    for (const std::string& text : texts) {
        buttons.push_back(entry(text));
    }
    return buttons;
}

inline std::shared_ptr<Foundation::NSIndexPath> row(std::int64_t index) {
    return Foundation::make<Foundation::NSIndexPath>(index, 0);
}

/// The menu's table, which is the only subview of its root view.
inline std::shared_ptr<UIKit::UITableView> tableOf(KivUICore::PopOverMenu& menu) {
    const auto& subviews = menu.view()->subviews();
    return subviews.empty() ? nullptr : Foundation::as<UIKit::UITableView>(subviews[0]);
}

/// A window with an anchor at the top, and a controller to show menus over; everything that the program
/// writes to standard output is caught.
class MenuTest : public testing::Test {
protected:
    MenuTest() {
        controller->view()->setFrame(host.window()->bounds());
        controller->view()->addSubview(anchor);
        host.window()->addSubview(controller->view());
        watcher = Foundation::make<Watcher>(story);
        testing::internal::CaptureStdout();
    }
    ~MenuTest() override { testing::internal::GetCapturedStdout(); }

    /// What was written since it was asked last.
    std::string output() {
        std::string text = testing::internal::GetCapturedStdout();
        testing::internal::CaptureStdout();
        return text;
    }

    std::shared_ptr<KivUICore::PopOverMenu> makeMenu(const std::vector<std::string>& texts) {
        return Foundation::make<KivUICore::PopOverMenu>(CoreGraphics::CGRectMake(0, 0, 200, 132),
                                                        entries(texts), watcher);
    }

    void show(KivUICore::PopOverMenu& menu) { menu.showPopOver(anchor, controller, nullptr); }

    bool isShown(KivUICore::PopOverMenu& menu) const { return menu.view()->window() == host.window(); }

    static CoreGraphics::CGPoint inRow(int index) { return {300.0, 52.0 + 44.0 * index + 22.0}; }
    static constexpr CoreGraphics::CGPoint outside{20.0, 300.0};

    Story story;
    KivUICore::Headless::HeadlessHost host{{640.0, 360.0}};
    std::shared_ptr<UIKit::UIViewController> controller = Foundation::make<UIKit::UIViewController>();
    std::shared_ptr<UIKit::UIView> anchor =
        Foundation::make<UIKit::UIView>(CoreGraphics::CGRectMake(300, 0, 44, 40));
    std::shared_ptr<Watcher> watcher;
};

} // namespace KivUICoreTests
