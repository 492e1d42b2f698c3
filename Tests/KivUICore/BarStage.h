#pragma once

#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/KivUICore.h"
#include "Tests/KivUICore/BarScript.h"
#include "Tests/KivUICore/BarState.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace KivUICoreTests {

/// A bar in a window, to which the operations of a script are done.
class BarStage {
public:
    /// A bar without controls, `width` points wide.
    explicit BarStage(double width);

    /// Any operation but those that let time pass.
    void perform(const BarOperation& operation);

    /// Lets time pass without a turn of the run loop.
    void runLate(double seconds);

    /// Turns the run loop at that time.
    void turn(double time);

    /// The calls are told once.
    BarState takeState();

private:
    class Bar;

    void performOnBar(const BarOperation& operation);
    void addControl(std::int64_t size, bool hasView);
    void addView();
    void paint(UIKit::UIView& view);
    void fadeByApplication(std::size_t index, double alpha, double duration);
    std::shared_ptr<UIKit::UIView> view(std::size_t index) const;
    std::vector<double> shownAlphas();

    // Outlives the host, whose timers and fades may be the last that hold a bar.
    std::vector<std::string> calls_;

    KivUICore::Headless::HeadlessHost host_;
    std::vector<std::shared_ptr<Foundation::NSTimer>> timers_;
    std::size_t fadesByApplication_ = 0;
    double viewsPainted_ = 0.0;

    // By a view's shade, as the window was drawn last.
    std::map<double, double> drawnAlphas_;

    std::shared_ptr<UIKit::UIView> container_;
    std::shared_ptr<Bar> bar_;
    std::weak_ptr<Bar> presentBar_;
};

} // namespace KivUICoreTests
