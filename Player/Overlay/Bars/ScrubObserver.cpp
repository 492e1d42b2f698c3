#include "Player/Overlay/Bars/ScrubObserver.h"

#include "KivUICore/UIComponent/Button.h"
#include "KivUICore/UIComponent/SeekBar.h"
#include "Platform/Foundation/ClassBuilder.h"

namespace KivUICore::Overlay {

const Foundation::Class& ScrubObserver::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<ScrubObserver, NSObject>("Overlay.ScrubObserver")
            .adopts<KivUICore::UIEventObserver>()
            .build();
    return object;
}

bool ScrubObserver::init(const Handlers& handlers) {
    handlers_ = handlers;
    return NSObject::init();
}

void ScrubObserver::onSeekBegan(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) { handlers_.began(); }

void ScrubObserver::onSeekFinished(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) {
    handlers_.ended();
}

void ScrubObserver::onValueChanged(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) {
    handlers_.moved();
}

} // namespace KivUICore::Overlay
