#pragma once

#include "Platform/Foundation/Protocol.h"

#include <array>
#include <string_view>

namespace KivCore {

/// What a player tells whoever watches it. Every operation is optional: an adopter lists those that it has in
/// its method table, and a player sends one only to observers that respond to it. The first argument is the
/// player, unless the operation takes none; `willHandleUrl:` is given the address.
class PlayerEventObserver : public Foundation::Protocol {
public:
    /// All operations, in their order.
    static constexpr std::array<std::string_view, 25> operations{
        "willHandleUrl:",
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
        "onPlayerRotate:",
    };

protected:
    ~PlayerEventObserver() = default;
};

} // namespace KivCore
