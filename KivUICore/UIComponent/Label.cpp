#include "KivUICore/UIComponent/Label.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/UIKit/UILabel.h"

#include <string>

namespace KivUICore {

using UIKit::UILabel;

namespace {

// The single-precision values that a signed 64-bit integer can hold: from -2^63 to the last one below 2^63.
constexpr float leastTime = -9223372036854775808.0F;
constexpr float greatestTime = 9223371487098961920.0F;

// Negative parts get their zero too, in front of the sign.
void appendPadded(std::string& text, std::int64_t part) {
    if (part < 10) {
        text += '0';
    }
    text += std::to_string(part);
}

} // namespace

const Foundation::Class& Label::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<Label, UIComponent>("KivUICore.Label")
            .initializer<const std::shared_ptr<UIKit::UIView>&, const std::shared_ptr<UIEventObserver>&>(
                "initWithView:observer:")
            .method<&Label::updateLabelWithTime>("updateLabelWithTime:")
            .method<&Label::textLabel>("textLabel")
            .build();
    return object;
}

bool Label::init(const std::shared_ptr<UIKit::UIView>& view,
                 const std::shared_ptr<UIEventObserver>& observer) {
    if (!UIComponent::init()) {
        return false;
    }
    setView(view);
    setObserver(observer);
    return true;
}

bool Label::init() { Foundation::unimplementedInitializer("init()", "KivUICore.Label"); }

void Label::updateLabelWithTime(float time) {
    if (const std::shared_ptr<UILabel> label = Foundation::as<UILabel>(view())) {
        label->setText(formatSeconds(time));
    }
}

std::shared_ptr<UILabel> Label::textLabel() const {
    std::shared_ptr<UILabel> label = Foundation::as<UILabel>(view());
    if (!label) {
        Foundation::stopSilently();
    }
    return label;
}

std::string Label::formatSeconds(float seconds) {
    if (!(seconds >= leastTime && seconds <= greatestTime)) {
        Foundation::stopSilently();
    }
    const Time time = secondsToHoursMinutesSeconds(static_cast<std::int64_t>(seconds));
    std::string text;
    if (time.hours != 0) {
        appendPadded(text, time.hours);
        text += ':';
    }
    appendPadded(text, time.minutes);
    text += ':';
    appendPadded(text, time.seconds);
    return text;
}

Label::Time Label::secondsToHoursMinutesSeconds(std::int64_t seconds) {
    return {seconds / 3600, seconds % 3600 / 60, seconds % 3600 % 60};
}

} // namespace KivUICore
