#pragma once

#include "Platform/UIKit/Controls/ValueForState.h"
#include "Platform/UIKit/UIControl.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace UIKit {

class UIColor;
class UIFont;
class UIImage;

/// A control that shows an image, a title, or the image leading the title, in its middle. What is set for the
/// normal state shows in every state for which nothing was set. Held down it lights up, and disabled it
/// fades; an image that was set for just that state is shown as it is.
class UIButton : public UIControl {
public:
    static const Foundation::Class& classObject();

    /// UTF-8. No title for a state stands for the normal one's; an empty title shows none.
    virtual void setTitle(const std::optional<std::string>& title, UIControlState state);
    virtual void setTitleColor(const std::shared_ptr<UIColor>& color, UIControlState state);

    /// Shown at its own size, or smaller in a button that is smaller. No image for a state stands for the
    /// normal one's.
    virtual void setImage(const std::shared_ptr<UIImage>& image, UIControlState state);

    /// What the button would show in that state.
    virtual const std::optional<std::string>& titleForState(UIControlState state) const;
    virtual std::shared_ptr<UIColor> titleColorForState(UIControlState state) const;
    virtual std::shared_ptr<UIImage> imageForState(UIControlState state) const;

    /// What it shows now.
    const std::optional<std::string>& currentTitle() const { return titleForState(state()); }
    std::shared_ptr<UIColor> currentTitleColor() const { return titleColorForState(state()); }
    std::shared_ptr<UIImage> currentImage() const { return imageForState(state()); }

    /// The title's; nothing stands for the button's own.
    virtual std::shared_ptr<UIFont> font() const;
    virtual void setFont(const std::shared_ptr<UIFont>& font);

    /// The colour of a title that has none of its own, and of all that is drawn in an image that is a
    /// drawing. Nothing at first: titles are white then, and images keep their colours.
    virtual std::shared_ptr<UIColor> tintColor() const;
    virtual void setTintColor(const std::shared_ptr<UIColor>& color);

    /// The width of a title is an estimate, rather wide.
    CoreGraphics::CGSize sizeThatFits(const CoreGraphics::CGSize& size) const override;

    void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect) override;

    /// Return and space press a focused button: it goes down and is lifted inside. A key that is held presses
    /// once.
    bool keyPressed(const UIKey& key) override;

private:
    struct Layout {
        CoreGraphics::CGRect image;
        CoreGraphics::CGRect title;
    };

    void press();
    Layout layout(const CoreGraphics::CGRect& bounds, const UIImage* image, std::string_view title) const;
    void drawImage(CoreGraphics::CGContext& context, const CoreGraphics::CGDrawing& drawing,
                   const CoreGraphics::CGRect& rect) const;
    bool fadesImage() const;
    CoreGraphics::CGFont shownFont() const;
    CoreGraphics::CGColor titleColor() const;
    std::string_view titleText() const;

    ValueForState<std::optional<std::string>> titles_;
    ValueForState<std::shared_ptr<UIColor>> titleColors_;
    ValueForState<std::shared_ptr<UIImage>> images_;
    std::shared_ptr<UIFont> font_;
    std::shared_ptr<UIColor> tintColor_;
};

} // namespace UIKit
