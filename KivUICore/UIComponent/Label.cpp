#include "KivUICore/UIComponent/Label.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/UIKit/UILabel.h"

#include <array>
#include <charconv>

namespace KivUICore {

using UIKit::UILabel;

namespace {

// The single-precision values that a signed 64-bit integer can hold: from -2^63 to the last one below 2^63.
constexpr float leastTime = -9223372036854775808.0F;
constexpr float greatestTime = 9223371487098961920.0F;

// Enough for the hours of either.
constexpr std::size_t longestText = 32;

// Negative parts get their zero too, in front of the sign.
char* writePadded(char* at, char* end, std::int64_t part) {
    if (part < 10) {
        *at++ = '0';
    }
    return std::to_chars(at, end, part).ptr;
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
    std::array<char, longestText> text;
    char* const end = text.data() + text.size();
    char* at = text.data();
    if (time.hours != 0) {
        at = writePadded(at, end, time.hours);
        *at++ = ':';
    }
    at = writePadded(at, end, time.minutes);
    *at++ = ':';
    at = writePadded(at, end, time.seconds);
    return {text.data(), at};
}

Label::Time Label::secondsToHoursMinutesSeconds(std::int64_t seconds) {
    return {seconds / 3600, seconds % 3600 / 60, seconds % 3600 % 60};
}

} // namespace KivUICore
