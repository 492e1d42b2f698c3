#pragma once

#include "KivCore/KivCore.h"
#include "KivUICore/Bottom/BottomBar.h"
#include "KivUICore/KivBar.h"
#include "KivUICore/KivUICoreVersion.h"
#include "KivUICore/TopBar/TopBar.h"
#include "KivUICore/UIComponent/Button.h"
#include "KivUICore/UIComponent/Label.h"
#include "KivUICore/UIComponent/PopOverButton.h"
#include "KivUICore/UIComponent/PopOverMenu.h"
#include "KivUICore/UIComponent/SeekBar.h"
#include "KivUICore/UIComponent/UIComponent.h"
#include "KivUICore/UIComponent/UIEventObserver.h"
#include "KivUICore/UIElement/UIElement.h"
#include "Platform/Foundation/Foundation.h"
#include "Platform/MediaPlayer/MediaPlayer.h"
#include "Platform/UIKit/UIKit.h"

namespace KivUICore {

inline const Foundation::ClassList kivUICoreClasses{
    KivBar::classObject,      TopBar::classObject,        BottomBar::classObject,
    UIComponent::classObject, Button::classObject,        SeekBar::classObject,
    Label::classObject,       PopOverButton::classObject, PopOverMenu::classObject};

} // namespace KivUICore
