#pragma once

#include "KivUICore/KivUICore.h"

#include <cstdint>
#include <memory>

namespace Benchmarks {

/// Counts the changes of a seek bar's value. Its functions are defined out of sight of those who call them,
/// so that no compiler can tell what a call does.
class SeekObserver : public Foundation::Adopting<Foundation::NSObject, KivUICore::UIEventObserver> {
public:
    static const Foundation::Class& classObject();

    void onButtonPress(const std::shared_ptr<KivUICore::Button>& button) override;
    void onSeekBegan(const std::shared_ptr<KivUICore::SeekBar>& seekBar) override;
    void onSeekFinished(const std::shared_ptr<KivUICore::SeekBar>& seekBar) override;
    void onValueChanged(const std::shared_ptr<KivUICore::SeekBar>& seekBar) override;
    void onPopOverButtonPress(std::int64_t row) override;
    void popOverShouldPresent() override;
    void onPopOverDismiss() override;

    std::int64_t changes() const { return changes_; }

private:
    std::int64_t changes_ = 0;
};

} // namespace Benchmarks
