#include "KivUICore/KivUICoreVersion.h"

const double KivUICoreVersionNumber = 1.0;

const char KivUICoreVersionString[] = "@(#)PROGRAM:KivUICore  PROJECT:KivUICore-1\n";
