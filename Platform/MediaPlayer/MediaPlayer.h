#pragma once

#include "Platform/Foundation/Class.h"
#include "Platform/MediaPlayer/MPRouteProvider.h"
#include "Platform/MediaPlayer/MPVolumeView.h"

namespace MediaPlayer {

inline const Foundation::ClassList mediaPlayerClasses{MPVolumeView::classObject};

} // namespace MediaPlayer
