#include "Benchmarks/SeekObserver.h"

namespace Benchmarks {

const Foundation::Class& SeekObserver::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<SeekObserver, NSObject>("Benchmarks.SeekObserver")
            .adopts<KivUICore::UIEventObserver>()
            .build();
    return object;
}

void SeekObserver::onButtonPress(const std::shared_ptr<KivUICore::Button>& /*button*/) {}
void SeekObserver::onSeekBegan(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) {}
void SeekObserver::onSeekFinished(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) {}
void SeekObserver::onValueChanged(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) { ++changes_; }
void SeekObserver::onPopOverButtonPress(std::int64_t /*row*/) {}
void SeekObserver::popOverShouldPresent() {}
void SeekObserver::onPopOverDismiss() {}

} // namespace Benchmarks
