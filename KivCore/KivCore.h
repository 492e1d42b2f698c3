#pragma once

#include "KivCore/KivEventNotifier.h"
#include "KivCore/KivPlayer.h"
#include "KivCore/PlayerEventObserver.h"
#include "Platform/Foundation/Class.h"

namespace KivCore {

inline const Foundation::ClassList kivCoreClasses{KivPlayer::classObject, KivEventNotifier::classObject};

} // namespace KivCore
