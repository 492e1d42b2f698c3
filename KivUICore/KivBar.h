#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"
#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSTimer.h"
#include "Platform/UIKit/UIView.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace UIKit {
class UIColor;
class UIImage;
} // namespace UIKit

namespace KivUICore {

class UIComponent;
class UIElement;

/// A strip over a host view, its superview, in which controls are placed on a grid of 12 columns. It is no
/// view itself: it owns one, the container view, which it puts into the superview and which stays there when
/// the bar is gone. All references are strong.
///
/// Only a bar made by `init(superview, frame)`, as TopBar and BottomBar are, knows the width of a column;
/// placing a control in any other stops the program.
///
/// Superview, container view and controls are never nothing: handing in nothing for one is a fatal report.
class KivBar : public Foundation::NSObject {
public:
    KivBar() = default;

    static const Foundation::Class& classObject();

    using Elemets = std::vector<std::shared_ptr<UIElement>>;

    /// The height of the docked bars, in points.
    static CoreGraphics::CGFloat barHeight() { return 40.0; }

    /// The number of columns of the grid.
    CoreGraphics::CGFloat columns() const { return columns_; }

    virtual std::shared_ptr<UIKit::UIView> superview() const;
    virtual void setSuperview(const std::shared_ptr<UIKit::UIView>& superview);

    /// The container view.
    virtual std::shared_ptr<UIKit::UIView> view() const;
    virtual void setView(const std::shared_ptr<UIKit::UIView>& view);

    /// The auto-hide timer that was scheduled last.
    virtual std::shared_ptr<Foundation::NSTimer> autoHideTimer() const;
    virtual void setAutoHideTimer(const std::shared_ptr<Foundation::NSTimer>& timer);

    /// Seconds without activity after which the bar hides; auto-hide is on while it is above 0.0. Setting it
    /// schedules nothing: the next `resetAutoHide` uses it.
    virtual double delay() const;
    virtual void setDelay(double delay);

    /// The controls placed, in the order of placing; absent until the first one and after `clean`. Keep what
    /// this gives while its list is looked at: in `for (… : *bar->elemets())` it is gone before the loop
    /// begins. `placedElemets` is made for loops.
    virtual std::optional<Elemets> elemets() const;
    virtual void setElemets(const std::optional<Elemets>& elemets);

    /// What `elemets` gives, as a list that a loop can go through at once; empty where that is absent.
    Elemets placedElemets() const { return elemets().value_or(Elemets()); }

    /// The width of one column in points.
    virtual std::optional<CoreGraphics::CGFloat> columnSize() const;
    virtual void setColumnSize(const std::optional<CoreGraphics::CGFloat>& columnSize);

    /// The frame that the bar was made with.
    virtual std::optional<CoreGraphics::CGRect> barFrame() const;
    virtual void setBarFrame(const std::optional<CoreGraphics::CGRect>& barFrame);

    /// A bar that takes controls: black at an alpha of 0.65, on top of the superview.
    virtual bool init(const std::shared_ptr<UIKit::UIView>& superview, const CoreGraphics::CGRect& frame);

    /// A strip of that colour, on top of the superview.
    virtual bool init(const std::shared_ptr<UIKit::UIView>& superview, const CoreGraphics::CGRect& frame,
                      const std::shared_ptr<UIKit::UIColor>& backgroundColor);

    /// A strip that repeats the image at its own size, on top of the superview.
    virtual bool init(const std::shared_ptr<UIKit::UIView>& superview, const CoreGraphics::CGRect& frame,
                      const std::shared_ptr<UIKit::UIImage>& backgroundImage);

    /// Takes `view` as the container view, where it is and as it is.
    virtual bool init(const std::shared_ptr<UIKit::UIView>& superview,
                      const std::shared_ptr<UIKit::UIView>& view);

    /// Not supported: stops the program with a report.
    bool init() override;

    /// Stores the delay in seconds and schedules `hide` after it, whatever it is. Earlier timers stay
    /// scheduled.
    virtual void setAutoHide(double delay);

    /// Starts the countdown over from the full delay: call it on every sign of activity. Does nothing while
    /// auto-hide is off.
    virtual void resetAutoHide();

    virtual void setBackgroundColor(const std::shared_ptr<UIKit::UIColor>& color);

    /// Stretches the image over the container view, which becomes opaque. Without an image the background
    /// stays, and the image context that was begun is left open.
    virtual void setBackgroundImage(const std::shared_ptr<UIKit::UIImage>& image);

    /// Fade the container view and each of its direct subviews out or in over half a second, after which the
    /// countdown starts over. Nothing happens in a bar that is hidden, or shown, already.
    virtual void hide();
    virtual void show();

private:
    // Stands among the public operations because overridable ones are declared in the order of their slots;
    // so does getCurrentWidth.
    virtual void handleAnimationWithAlpha(CoreGraphics::CGFloat alpha);

public:
    /// Follows the superview to its new frame: over half a second the container view takes the new width at a
    /// height of 40 points, at the bottom if the bar is a BottomBar, and the slots take the fixed pattern of
    /// 2, 6, 2, 2, … columns.
    virtual void updateBarFrameWithFrame(const CoreGraphics::CGRect& frame);

    /// Places a control after those that are there, in a slot of `size` columns; nothing checks that it fits.
    /// A seek bar that isn't the first keeps 44 points on its right for its route button. Without
    /// `columnSize` and `barFrame` the program stops.
    virtual void addElementToView(const std::shared_ptr<UIComponent>& component, std::int64_t size);

private:
    virtual CoreGraphics::CGFloat getCurrentWidth() const;

public:
    /// Stops the countdown, empties the observer of every control, takes their views out and forgets them.
    /// The slots stay. Run when a bar is torn down.
    virtual void clean();

protected:
    /// The edge of the superview that the bar follows.
    enum class Edge { Top, Bottom };

    explicit KivBar(Edge edge) : edge_(edge) {}

    void dealloc() override;

private:
    void startEmpty();
    std::shared_ptr<UIKit::UIView> container(std::string_view operation) const;
    void placeFirst(const std::shared_ptr<UIComponent>& component, std::int64_t size);
    void placeFurther(const std::shared_ptr<UIComponent>& component, std::int64_t size);
    void finishPlacing(const std::shared_ptr<UIKit::UIView>& slot,
                       const std::shared_ptr<UIComponent>& component, std::int64_t size);

    Edge edge_ = Edge::Top;
    std::shared_ptr<UIKit::UIView> superview_;
    std::shared_ptr<UIKit::UIView> view_;
    std::shared_ptr<Foundation::NSTimer> autoHideTimer_;
    double delay_ = 0.0;
    std::optional<Elemets> elemets_;
    std::optional<CoreGraphics::CGFloat> columnSize_;
    std::optional<CoreGraphics::CGRect> barFrame_;
    CoreGraphics::CGFloat columns_ = 12.0;
};

} // namespace KivUICore
