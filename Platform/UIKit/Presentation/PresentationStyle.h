#pragma once

#include <memory>

namespace UIKit {

class Presentation;
class UIView;

/// What differs between presentations: which views take part, where the content lies, and who is told.
class PresentationStyle {
public:
    virtual ~PresentationStyle() = default;

    /// Called once, before anything is shown. May end the presentation.
    virtual void prepare(const std::shared_ptr<Presentation>& presentation) = 0;

    /// The presented root view, and the one that it is presented over; nothing while there is none.
    virtual std::shared_ptr<UIView> content() const = 0;
    virtual std::shared_ptr<UIView> owner() const = 0;

    /// Puts the content into the container, which covers the window, or to its new place there.
    virtual void layOutContent(UIView& container, const std::shared_ptr<UIView>& content) = 0;

    /// What comes and goes with a fade: the container, or something in it.
    virtual std::shared_ptr<UIView> fadedView(const std::shared_ptr<UIView>& container) const = 0;

    /// Whether a touch or the escape key outside the content dismisses it.
    virtual bool closesFromOutside() const = 0;

    /// Called after such a dismissal.
    virtual void didDismissFromOutside() = 0;
};

} // namespace UIKit
