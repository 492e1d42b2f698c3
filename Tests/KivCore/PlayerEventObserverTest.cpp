#include "KivCore/PlayerEventObserver.h"

#include "Platform/Foundation/Foundation.h"

#include <gtest/gtest.h>
#include <string_view>
#include <type_traits>
#include <vector>

namespace {

using namespace Foundation;
using namespace KivCore;

TEST(PlayerEventObserverTest, NamesItsOperationsInTheirOrder) {
    const std::vector<std::string_view> expected{"willHandleUrl:",
                                                 "onKivError:error:",
                                                 "onKivPlaybackStateChanged:",
                                                 "onKivBufferingStateChanged:",
                                                 "onKivPositionChange:",
                                                 "onKivTimeChange:",
                                                 "onKivCuepointReached:atTime:",
                                                 "onKivPlaybackEnded:",
                                                 "onKivReplay:",
                                                 "onHandledResignActive:",
                                                 "onHandledDidBecomeActive:",
                                                 "onStreamInformationChanged:streamInfo:",
                                                 "willStop:",
                                                 "onEnabledLogs:",
                                                 "onDisabledLogs:",
                                                 "onTimedMetadata:metadata:",
                                                 "onSeekBegan",
                                                 "onSeekEnd",
                                                 "onKivTap:",
                                                 "onKivDoubleTap:",
                                                 "onEnterFullscreen:",
                                                 "onExitFullscreen:",
                                                 "willEnterFullscreen:",
                                                 "willExitFullscreen:",
                                                 "onPlayerRotate:"};
    EXPECT_EQ(std::vector<std::string_view>(PlayerEventObserver::operations.begin(),
                                            PlayerEventObserver::operations.end()),
              expected);
}

/// Adopts the protocol and implements nothing: every operation is optional.
class Passerby : public Adopting<NSObject, PlayerEventObserver> {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<Passerby, NSObject>("Tests.Passerby").build();
        return object;
    }
};

static_assert(!std::is_abstract_v<Passerby>);

TEST(PlayerEventObserverTest, EveryOperationIsOptional) {
    const auto passerby = make<Passerby>();
    PlayerEventObserver& adopter = *passerby;
    EXPECT_EQ(&adopter.asObject(), passerby.get());
    for (const std::string_view operation : PlayerEventObserver::operations) {
        EXPECT_FALSE(adopter.respondsToSelector(operation)) << operation;
    }
}

} // namespace
