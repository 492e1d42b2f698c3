#pragma once

#include "KivUICore/UIComponent/UIComponent.h"

#include <cstdint>
#include <memory>
#include <string>

namespace UIKit {
class UILabel;
}

namespace KivUICore {

/// Shows a time in seconds as minutes and seconds, or from one hour on as hours, minutes and seconds. It
/// sends its observer nothing.
class Label : public UIComponent {
public:
    static const Foundation::Class& classObject();

    /// Any view is taken; one that is no UILabel is never updated.
    bool init(const std::shared_ptr<UIKit::UIView>& view, const std::shared_ptr<UIEventObserver>& observer);

    /// Not supported: stops the program with a report.
    bool init() override;

    /// Fractions of a second are dropped. A time that is not a number or doesn't fit a signed 64-bit integer
    /// stops the program, unless the view is no UILabel, for which nothing happens at all.
    void updateLabelWithTime(float time);

    /// The view as the UILabel that it must be: anything else stops the program.
    std::shared_ptr<UIKit::UILabel> textLabel() const;

private:
    struct Time {
        std::int64_t hours;
        std::int64_t minutes;
        std::int64_t seconds;
    };

    static std::string formatSeconds(float seconds);
    static Time secondsToHoursMinutesSeconds(std::int64_t seconds);
};

} // namespace KivUICore
