#include "KivCore/KivPlayer.h"

#include "KivCore/KivCore.h"
#include "Platform/Foundation/Foundation.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

using namespace Foundation;
using namespace KivCore;

TEST(KivPlayerTest, WantsNoRouteButtonAndTellsItsObserversThroughOneNotifier) {
    const auto player = make<KivPlayer>();
    EXPECT_FALSE(player->allowsAirPlay());
    ASSERT_NE(player->eventNotifier(), nullptr);
    EXPECT_EQ(player->eventNotifier(), player->eventNotifier());
    EXPECT_NE(player->eventNotifier(), make<KivPlayer>()->eventNotifier());
}

TEST(KivPlayerTest, IsReachedByName) {
    const Class* found = Class::named("KivCore.KivPlayer");
    ASSERT_EQ(found, &KivPlayer::classObject());
    EXPECT_EQ(Class::named("KivCore.KivEventNotifier"), &KivEventNotifier::classObject());
    std::set<std::string> names;
    for (const SEL selector : found->selectors()) {
        names.emplace(selector.name());
    }
    EXPECT_EQ(names, (std::set<std::string>{"init", "allowsAirPlay", "eventNotifier"}));
    const auto player = found->alloc();
    ASSERT_TRUE(player->send<bool>("init"));
    EXPECT_FALSE(player->send<bool>("allowsAirPlay"));
    EXPECT_NE(player->send<std::shared_ptr<KivEventNotifier>>("eventNotifier"), nullptr);
}

/// An application's own player.
class FilmPlayer : public KivPlayer {
public:
    bool allowsAirPlay() const override { return true; }
    std::shared_ptr<KivEventNotifier> eventNotifier() const override { return nullptr; }
};

TEST(KivPlayerTest, ASubclassAnswersByNameToo) {
    const auto player = make<FilmPlayer>();
    EXPECT_TRUE(player->send<bool>("allowsAirPlay"));
    EXPECT_EQ(player->send<std::shared_ptr<KivEventNotifier>>("eventNotifier"), nullptr);
}

} // namespace
