#pragma once

#include "KivUICore/UIComponent/UIEventObserver.h"
#include "Platform/Foundation/NSObject.h"

#include <functional>
#include <memory>

namespace KivUICore::Overlay {

/// Passes what happens to the seek bar on to closures.
class ScrubObserver : public Foundation::Adopting<Foundation::NSObject, KivUICore::UIEventObserver> {
public:
    static const Foundation::Class& classObject();

    struct Handlers {
        std::function<void()> began;
        std::function<void()> moved;
        std::function<void()> ended;
    };

    using NSObject::init;
    bool init(const Handlers& handlers);

    void onButtonPress(const std::shared_ptr<KivUICore::Button>& /*button*/) override {}
    void onSeekBegan(const std::shared_ptr<KivUICore::SeekBar>& seekBar) override;
    void onSeekFinished(const std::shared_ptr<KivUICore::SeekBar>& seekBar) override;
    void onValueChanged(const std::shared_ptr<KivUICore::SeekBar>& seekBar) override;
    void onPopOverButtonPress(std::int64_t /*row*/) override {}
    void popOverShouldPresent() override {}
    void onPopOverDismiss() override {}

private:
    Handlers handlers_;
};

} // namespace KivUICore::Overlay
