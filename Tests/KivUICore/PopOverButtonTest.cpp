#include "KivUICore/UIComponent/PopOverButton.h"

#include "Tests/KivUICore/HostView.h"
#include "Tests/KivUICore/Stops.h"
#include "Tests/KivUICore/Tables.h"

namespace {

using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UIImage;

TEST(PopOverButtonTest, BeginsWithItsImageAndItsText) {
    const auto image = imageOf({1.0, 1.0});
    const auto button = make<PopOverButton>(image, "English");
    EXPECT_EQ(button->image(), image);
    EXPECT_EQ(button->text(), "English");
}

TEST(PopOverButtonTest, AnEmptyTextIsPresent) {
    EXPECT_EQ(make<PopOverButton>(imageOf({1.0, 1.0}), "")->text(), "");
}

TEST(PopOverButtonTest, BothMayBeTakenAwayAndGivenAgain) {
    const auto button = make<PopOverButton>(imageOf({1.0, 1.0}), "English");
    button->setImage(nullptr);
    button->setText(std::nullopt);
    EXPECT_EQ(button->image(), nullptr);
    EXPECT_EQ(button->text(), std::nullopt);
    const auto image = imageOf({2.0, 2.0});
    button->setImage(image);
    button->setText("Deutsch");
    EXPECT_EQ(button->image(), image);
    EXPECT_EQ(button->text(), "Deutsch");
}

TEST(PopOverButtonTest, OwnsItsImageUntilItEnds) {
    auto image = imageOf({1.0, 1.0});
    const std::weak_ptr<UIImage> present = image;
    auto button = make<PopOverButton>(image, "English");
    image = nullptr;
    EXPECT_FALSE(present.expired());
    button = nullptr;
    EXPECT_TRUE(present.expired());
}

TEST(PopOverButtonTest, KeepsItsOwnCopyOfTheText) {
    std::string text = "English";
    const auto button = make<PopOverButton>(imageOf({1.0, 1.0}), text);
    text = "Deutsch";
    EXPECT_EQ(button->text(), "English");
}

TEST(PopOverButtonTest, AddsJustItsOperationsToWhatIsReachedByName) {
    EXPECT_EQ(ownSelectors(PopOverButton::classObject()),
              (std::set<std::string>{"image", "setImage:", "text", "setText:", "initWithImage:text:"}));
    EXPECT_EQ(PopOverButton::classObject().superclass(), &NSObject::classObject());
    EXPECT_TRUE(PopOverButton::classObject().classMethods().selectors().empty());
}

TEST(PopOverButtonTest, IsMadeAndWorkedByName) {
    const auto image = imageOf({1.0, 1.0});
    const auto button = Class::named("KivUICore.PopOverButton")->alloc();
    ASSERT_TRUE(button->send<bool>("initWithImage:text:", image, "English"));
    EXPECT_EQ(button->send<std::shared_ptr<UIImage>>("image"), image);
    EXPECT_EQ(button->send<std::optional<std::string>>("text"), "English");
    button->send("setImage:", nullptr);
    button->send("setText:", std::optional<std::string>());
    EXPECT_EQ(button->send<std::shared_ptr<UIImage>>("image"), nullptr);
    EXPECT_EQ(button->send<std::optional<std::string>>("text"), std::nullopt);
}

TEST(PopOverButtonTest, ItsOperationsAreOverridableInTheirOrder) {
    const auto first = slotOf(&PopOverButton::image);
    ASSERT_TRUE(first);
    EXPECT_EQ(slotOf(&PopOverButton::setImage), *first + 1);
    EXPECT_EQ(slotOf(&PopOverButton::text), *first + 2);
    EXPECT_EQ(slotOf(&PopOverButton::setText), *first + 3);
    using Init = bool (PopOverButton::*)(const std::shared_ptr<UIImage>&, const std::string&);
    EXPECT_EQ(slotOf(static_cast<Init>(&PopOverButton::init)), *first + 4);
}

TEST(PopOverButtonTest, TheInitializerWritesTheFieldsWithoutTheSetters) {
    class Counting : public PopOverButton {
    public:
        int stores = 0;
        void setImage(const std::shared_ptr<UIImage>& image) override {
            ++stores;
            PopOverButton::setImage(image);
        }
        void setText(const std::optional<std::string>& text) override {
            ++stores;
            PopOverButton::setText(text);
        }
    };
    const auto button = make<Counting>(imageOf({1.0, 1.0}), "English");
    EXPECT_EQ(button->stores, 0);
    EXPECT_EQ(button->text(), "English");
}

TEST(PopOverButtonDeathTest, WithoutArgumentsThereIsNone) {
    EXPECT_UNIMPLEMENTED(make<PopOverButton>(), "init()", "KivUICore.PopOverButton");
    EXPECT_UNIMPLEMENTED(Class::named("KivUICore.PopOverButton")->alloc()->send<bool>("init"), "init()",
                         "KivUICore.PopOverButton");
}

} // namespace
