#include "Hosts/Cairo/OverlaySurface.h"
#include "KivUICore/KivUICore.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIWindow.h"
#include "Tests/Foundation/ManualClock.h"

#include <algorithm>
#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <link.h>
#include <string>
#include <vector>

namespace KivUICore::Cairo {

namespace {

using Foundation::make;
using testing::Each;
using testing::HasSubstr;
using testing::Ne;
using testing::Not;

using Row = std::vector<std::uint32_t>;

/// Memory such as a program gets from its own window system: the rows are longer than the picture.
class PlainBuffer {
public:
    PlainBuffer(int width, int height)
        : size_{width, height}, rowLength_(static_cast<std::size_t>(width) + 3),
          pixels_(rowLength_ * static_cast<std::size_t>(height)) {}

    PixelBuffer buffer() {
        return {reinterpret_cast<unsigned char*>(pixels_.data()), size_, rowLength_ * sizeof(std::uint32_t)};
    }

    void fill(std::uint32_t value) { std::fill(pixels_.begin(), pixels_.end(), value); }

    Row row(int y) const {
        const auto begin =
            pixels_.begin() + static_cast<std::ptrdiff_t>(rowLength_ * static_cast<std::size_t>(y));
        return {begin, begin + size_.width};
    }

    const std::vector<std::uint32_t>& all() const { return pixels_; }

private:
    PixelSize size_;
    std::size_t rowLength_;
    std::vector<std::uint32_t> pixels_;
};

/// A program with a window system of its own: all it takes from the project is views and their pixels.
class PlainBufferWithBars : public testing::Test {
protected:
    static constexpr int width = 300;
    static constexpr int height = 200;
    static constexpr double scale = 1.5;

    PlainBufferWithBars() {
        window->setContentScale(scale);
        top->view()->setBackgroundColor(make<UIKit::UIColor>(0.2, 0.4, 0.6, 0.5));
        bottom->view()->setBackgroundColor(make<UIKit::UIColor>(0.6, 0.4, 0.2, 0.5));
    }

    static bool isDamaged(int y, std::span<const PixelRect> changed) {
        return std::any_of(changed.begin(), changed.end(),
                           [y](const PixelRect& rect) { return y >= rect.y && y < rect.y + rect.height; });
    }

    ManualClock clock;
    Foundation::NSRunLoop runLoop{clock};
    std::shared_ptr<UIKit::UIWindow> window =
        make<UIKit::UIWindow>(CoreGraphics::CGRectMake(0.0, 0.0, width / scale, height / scale));
    std::shared_ptr<TopBar> top = make<TopBar>(window);
    std::shared_ptr<BottomBar> bottom = make<BottomBar>(window);
    CairoResources resources;
    PlainBuffer memory{width, height};
};

TEST_F(PlainBufferWithBars, ShowsTheBarsAtItsEdgesAndNothingBetweenThem) {
    OverlaySurface surface(memory.buffer(), scale, resources);
    surface.draw(*window);
    const auto barRows = static_cast<int>(KivBar::barHeight() * scale);
    EXPECT_THAT(memory.row(0), Each(Ne(0U)));
    EXPECT_THAT(memory.row(barRows - 1), Each(Ne(0U)));
    EXPECT_THAT(memory.row(barRows), Each(0U));
    EXPECT_THAT(memory.row(height - barRows - 1), Each(0U));
    EXPECT_THAT(memory.row(height - barRows), Each(Ne(0U)));
    EXPECT_THAT(memory.row(height - 1), Each(Ne(0U)));
}

TEST_F(PlainBufferWithBars, OnlyDamagedRowsAreDrawnAgain) {
    OverlaySurface surface(memory.buffer(), scale, resources);
    surface.draw(*window);
    constexpr std::uint32_t untouched = 0xDEADBEEF;
    memory.fill(untouched);
    bottom->view()->setBackgroundColor(make<UIKit::UIColor>(0.0, 0.8, 0.0, 1.0));
    const std::span<const PixelRect> changed = surface.draw(*window);

    PlainBuffer whole(width, height);
    window->setNeedsDisplayEverywhere();
    OverlaySurface(whole.buffer(), scale, resources).draw(*window);
    for (int y = 0; y < height; ++y) {
        if (isDamaged(y, changed)) {
            EXPECT_EQ(memory.row(y), whole.row(y)) << "row " << y;
        } else {
            EXPECT_THAT(memory.row(y), Each(untouched)) << "row " << y;
        }
    }
    EXPECT_FALSE(isDamaged(0, changed));
    EXPECT_TRUE(isDamaged(height - 1, changed));
}

TEST_F(PlainBufferWithBars, StaysAsItIsWithoutAChange) {
    OverlaySurface surface(memory.buffer(), scale, resources);
    surface.draw(*window);
    const std::vector<std::uint32_t> before = memory.all();
    EXPECT_THAT(surface.draw(*window), testing::IsEmpty());
    EXPECT_EQ(memory.all(), before);
}

TEST(PlainBuffer, NeedsNoWindowSystemInTheProgram) {
    std::vector<std::string> libraries;
    dl_iterate_phdr(
        [](dl_phdr_info* library, std::size_t, void* names) {
            static_cast<std::vector<std::string>*>(names)->emplace_back(library->dlpi_name);
            return 0;
        },
        &libraries);
    EXPECT_THAT(libraries, testing::Contains(HasSubstr("libcairo")));
    EXPECT_THAT(libraries, Each(Not(HasSubstr("libSDL"))));
    EXPECT_THAT(libraries, Each(Not(HasSubstr("libGL"))));
}

} // namespace

} // namespace KivUICore::Cairo
