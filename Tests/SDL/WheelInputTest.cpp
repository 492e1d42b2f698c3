#include "Hosts/SDL/WheelInput.h"

#include <gtest/gtest.h>

namespace KivUICore::SDL {

namespace {

SDL_MouseWheelEvent turn(float right, float away, Uint32 direction = SDL_MOUSEWHEEL_NORMAL) {
    SDL_MouseWheelEvent event{};
    event.type = SDL_MOUSEWHEEL;
    event.direction = direction;
    event.x = static_cast<Sint32>(right);
    event.y = static_cast<Sint32>(away);
    event.preciseX = right;
    event.preciseY = away;
    return event;
}

TEST(WheelInput, TurnAwayIsUpAndMovesWhatIsScrolledDown) {
    const WheelTurn up = wheelTurnOf(turn(0.0F, 2.0F));
    EXPECT_EQ(up.notches, 2.0);
    EXPECT_EQ(up.delta.x, 0.0);
    EXPECT_EQ(up.delta.y, 80.0);
    EXPECT_EQ(wheelTurnOf(turn(0.0F, -1.0F)).notches, -1.0);
    EXPECT_EQ(wheelTurnOf(turn(0.0F, -1.0F)).delta.y, -40.0);
}

TEST(WheelInput, TurnToTheRightMovesWhatIsScrolledToTheLeft) {
    const WheelTurn right = wheelTurnOf(turn(1.0F, 0.0F));
    EXPECT_EQ(right.notches, 0.0);
    EXPECT_EQ(right.delta.x, -40.0);
}

TEST(WheelInput, PartsOfANotchCount) {
    EXPECT_EQ(wheelTurnOf(turn(0.0F, 0.25F)).notches, 0.25);
    EXPECT_EQ(wheelTurnOf(turn(0.0F, 0.25F)).delta.y, 10.0);
}

TEST(WheelInput, WholeNotchesAloneCountToo) {
    SDL_MouseWheelEvent event{};
    event.y = -3;
    EXPECT_EQ(wheelTurnOf(event).notches, -3.0);
    EXPECT_EQ(wheelTurnOf(event).delta.y, -120.0);
}

TEST(WheelInput, TurnedRoundByTheSystemTheNotchesStayWhatTheHandDoes) {
    const WheelTurn turned = wheelTurnOf(turn(0.0F, 1.0F, SDL_MOUSEWHEEL_FLIPPED));
    EXPECT_EQ(turned.notches, -1.0);
    EXPECT_EQ(turned.delta.y, 40.0);
}

} // namespace

} // namespace KivUICore::SDL
