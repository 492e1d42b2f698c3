#pragma once

#include "KivUICore/KivUICore.h"

#include <memory>

namespace Benchmarks {

/// The overlay that is measured: a top bar with a button and a label, a bottom bar with a button, a label, a
/// seek bar, a label and a button. The peers build the same.
class Overlay {
public:
    Overlay(const std::shared_ptr<UIKit::UIView>& superview,
            const std::shared_ptr<KivCore::KivPlayer>& player);

    const std::shared_ptr<KivUICore::Label>& elapsedTime() const { return elapsedTime_; }
    const std::shared_ptr<KivUICore::BottomBar>& bottomBar() const { return bottomBar_; }

private:
    std::shared_ptr<KivUICore::TopBar> topBar_;
    std::shared_ptr<KivUICore::BottomBar> bottomBar_;
    std::shared_ptr<KivUICore::Label> elapsedTime_;
};

} // namespace Benchmarks
