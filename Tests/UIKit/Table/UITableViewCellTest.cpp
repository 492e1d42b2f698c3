#include "Platform/UIKit/UITableViewCell.h"

#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIImageView.h"
#include "Platform/UIKit/UILabel.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/UIKit/ControlTestSupport.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;

class UITableViewCellTest : public testing::Test {
protected:
    UITableViewCellTest() {
        cell->setFrame(CGRectMake(0, 44, 300, 44));
        cell->layoutIfNeeded();
        host.window()->addSubview(cell);
    }

    /// The colour over the whole row, or nothing.
    std::optional<CGColor> tint() const {
        for (const auto& fill : drawnBy<CGDrawing::FillRect>(*cell)) {
            if (fill.rect == cell->bounds()) {
                return fill.color;
            }
        }
        return std::nullopt;
    }

    KivUICore::Headless::HeadlessHost host{{300, 200}};
    std::shared_ptr<UITableViewCell> cell = make<UITableViewCell>(UITableViewCellStyle::Default, "row");
};

TEST_F(UITableViewCellTest, HasALabelAndAnImageViewThatStayTheSame) {
    EXPECT_EQ(cell->reuseIdentifier(), "row");
    EXPECT_EQ(make<UITableViewCell>()->reuseIdentifier(), std::nullopt);
    EXPECT_EQ(cell->textLabel(), cell->textLabel());
    EXPECT_EQ(cell->imageView(), cell->imageView());
    EXPECT_EQ(cell->textLabel()->superview(), cell);
    EXPECT_EQ(cell->imageView()->superview(), cell);
}

TEST_F(UITableViewCellTest, WithoutAnImageTheTextBeginsAtTheMargin) {
    cell->textLabel()->setText("One");
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(16, 0, 268, 44));
    EXPECT_EQ(cell->imageView()->image(), nullptr);
    EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(16, 0, 268, 44));
}

TEST_F(UITableViewCellTest, AnImageStandsAtTheLeadingEdgeAndTheTextBesideIt) {
    cell->textLabel()->setText("One");
    cell->imageView()->setImage(makeImage({20, 20}));
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->imageView()->frame(), CGRectMake(16, 8, 20, 28));
    EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(48, 0, 236, 44));
    cell->imageView()->setImage(nullptr);
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(16, 0, 268, 44));
}

TEST_F(UITableViewCellTest, AnImageThatIsTooLargeShowsSmallerInItsShape) {
    cell->imageView()->setImage(makeImage({100, 50}));
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->imageView()->frame(), CGRectMake(16, 8, 44, 28));
    cell->imageView()->setImage(makeImage({56, 56}));
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->imageView()->frame(), CGRectMake(16, 8, 28, 28));
}

TEST_F(UITableViewCellTest, ContentFollowsTheSizeHoweverSmall) {
    cell->imageView()->setImage(makeImage({20, 20}));
    cell->textLabel()->setText("One");
    cell->setBounds(CGRectMake(0, 0, 100, 44));
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(48, 0, 36, 44));
    cell->setFrame(CGRectMake(0, 0, 10, 4));
    cell->layoutIfNeeded();
    EXPECT_EQ(cell->textLabel()->frame().size.width, 0.0);
    EXPECT_EQ(cell->imageView()->frame().size, (CGSize{0, 0}));
}

TEST_F(UITableViewCellTest, ItsTextIsDarkAndOnOneLine) {
    const CGColor color = cell->textLabel()->textColor()->cgColor();
    EXPECT_LT(color.red, 0.15);
    EXPECT_EQ(color.alpha, 1.0);
    EXPECT_EQ(cell->textLabel()->numberOfLines(), 1);
}

TEST_F(UITableViewCellTest, HasNoBackgroundButForATintWhileHighlightedOrSelected) {
    EXPECT_EQ(cell->backgroundColor(), nullptr);
    EXPECT_EQ(tint(), std::nullopt);
    cell->setHighlighted(true);
    ASSERT_TRUE(tint());
    const CGColor whole = *tint();
    cell->setSelected(true, false);
    cell->setHighlighted(false);
    EXPECT_TRUE(cell->isSelected());
    EXPECT_FALSE(cell->isHighlighted());
    EXPECT_EQ(tint(), whole);
    cell->setSelected(false, false);
    EXPECT_EQ(tint(), std::nullopt);
}

TEST_F(UITableViewCellTest, AnimatedTheTintFadesAndThenRests) {
    cell->setSelected(true, false);
    const double whole = tint()->alpha;
    cell->setSelected(false, true);
    EXPECT_FALSE(cell->isSelected());
    host.advance(0.125);
    EXPECT_NEAR(tint()->alpha, whole / 2.0, whole / 10.0);
    host.advance(0.2);
    EXPECT_EQ(tint(), std::nullopt);
    host.draw();
    host.advance(1.0);
    EXPECT_FALSE(host.window()->needsDisplay());
}

TEST_F(UITableViewCellTest, IsMadeAndReadByName) {
    const auto made = Foundation::Class::named("UIKit.UITableViewCell")->alloc();
    ASSERT_TRUE(made->send<bool>("initWithStyle:reuseIdentifier:", 0, "row"));
    EXPECT_EQ(made->send<std::optional<std::string>>("reuseIdentifier"), "row");
    EXPECT_NE(made->send<std::shared_ptr<UILabel>>("textLabel"), nullptr);
    EXPECT_NE(made->send<std::shared_ptr<UIImageView>>("imageView"), nullptr);
    made->send("setSelected:animated:", true, false);
    EXPECT_TRUE(made->send<bool>("selected"));
}

// The image view

TEST(UIImageViewTest, IsAsLargeAsItsImageAndTakesNoTouches) {
    const auto view = make<UIImageView>(makeImage({30, 20}));
    EXPECT_EQ(view->frame(), CGRectMake(0, 0, 30, 20));
    EXPECT_FALSE(view->isUserInteractionEnabled());
    EXPECT_EQ(view->sizeThatFits({}), (CGSize{30, 20}));
    view->setImage(nullptr);
    EXPECT_EQ(view->sizeThatFits({}), CGSize());
    EXPECT_TRUE(drawnBy<CGDrawing::ClipToRect>(*view).empty());
    EXPECT_EQ(make<UIImageView>(std::shared_ptr<UIImage>())->frame(), CGRect());
}

TEST(UIImageViewTest, DrawsTheImageInTheMiddleAndSmallerWhereItDoesNotFit) {
    const auto view = make<UIImageView>(CGRectMake(0, 0, 100, 40));
    view->setImage(makeImage({20, 20}));
    EXPECT_EQ(drawnBy<CGDrawing::ClipToRect>(*view).at(0).rect, CGRectMake(40, 10, 20, 20));
    view->setImage(makeImage({400, 80}));
    EXPECT_EQ(drawnBy<CGDrawing::ClipToRect>(*view).at(0).rect, CGRectMake(0, 10, 100, 20));
}

TEST(UIImageViewTest, OnlyAnotherImageIsDrawnAgain) {
    KivUICore::Headless::HeadlessHost host{{100, 100}};
    const auto image = makeImage({20, 20});
    const auto view = make<UIImageView>(image);
    host.window()->addSubview(view);
    host.draw();
    view->setImage(image);
    EXPECT_FALSE(host.window()->needsDisplay());
    view->setImage(nullptr);
    EXPECT_TRUE(host.window()->needsDisplay());
}

} // namespace
