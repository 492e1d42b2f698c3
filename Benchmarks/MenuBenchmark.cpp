#include "Benchmarks/Inputs.h"
#include "Benchmarks/Measures.h"
#include "Benchmarks/NullContext.h"
#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/KivUICore.h"
#include "Platform/CoreGraphics/CGRecordingContext.h"

#include <benchmark/benchmark.h>
#include <memory>

namespace {

using namespace Benchmarks;
using namespace CoreGraphics;
using Foundation::make;
using KivUICore::PopOverButton;
using KivUICore::PopOverMenu;

/// A menu over entries that are there already, as rows are in a model.
class BorrowingMenu : public PopOverMenu {
public:
    using PopOverMenu::init;
    bool init(const CGRect& frame, const std::optional<Buttons>& entries) {
        entries_ = &entries;
        return PopOverMenu::init(frame, {}, nullptr);
    }

    const std::optional<Buttons>& buttons() const override { return *entries_; }

    // Its lines on standard output are no part of the measure.
    void prepareForPopoverPresentation(
        const std::shared_ptr<UIKit::UIPopoverPresentationController>& /*controller*/) override {}

private:
    const std::optional<Buttons>* entries_ = nullptr;
};

/// A menu on the screen, gone when this goes.
class ShownMenu {
public:
    ShownMenu(KivUICore::Headless::HeadlessHost& host, UIKit::UIViewController& controller,
              const std::optional<PopOverMenu::Buttons>& entries)
        : host_(host), controller_(controller),
          menu_(make<BorrowingMenu>(CGRectMake(0.0, 0.0, 240.0, 308.0), entries)) {
        menu_->showPopOver(controller.view(), nullptr, nullptr);
        menu_->popoverPresentationController()->setSourceRect(CGRectMake(600.0, 0.0, 44.0, 40.0));
        controller.presentViewController(menu_, false, nullptr);
        host.runLoop().turn();
        NullContext context;
        host.window()->display(context);
    }
    ShownMenu(const ShownMenu&) = delete;
    ShownMenu& operator=(const ShownMenu&) = delete;
    ~ShownMenu() {
        controller_.dismissViewControllerAnimated(false, nullptr);
        host_.runLoop().turn();
    }

private:
    KivUICore::Headless::HeadlessHost& host_;
    UIKit::UIViewController& controller_;
    std::shared_ptr<BorrowingMenu> menu_;
};

template <int rows>
void popOverMenu(benchmark::State& state) {
    KivUICore::Headless::HeadlessHost host({screenWidth, screenHeight});
    const auto controller = make<UIKit::UIViewController>();
    controller->view()->setFrame(host.window()->bounds());
    host.window()->addSubview(controller->view());
    CGRecordingContext picture({20.0, 20.0});
    const auto entry = make<PopOverButton>(make<UIKit::UIImage>(picture.drawing()), "Commentary");
    const std::optional<PopOverMenu::Buttons> entries = PopOverMenu::Buttons(rows, entry);
    measureMenu(state, [&] { return std::make_unique<ShownMenu>(host, *controller, entries); });
}

BENCHMARK(popOverMenu<10>)->Name("menu shown, 10 rows/KivUICore");
BENCHMARK(popOverMenu<10'000>)->Name("menu shown, 10,000 rows/KivUICore");
BENCHMARK(popOverMenu<1'000'000>)->Name("menu shown, 1,000,000 rows/KivUICore");

} // namespace
