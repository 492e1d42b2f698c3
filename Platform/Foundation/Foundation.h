#pragma once

#include "Platform/Foundation/Block.h"
#include "Platform/Foundation/Class.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/Foundation/Message.h"
#include "Platform/Foundation/NSBundle.h"
#include "Platform/Foundation/NSCoder.h"
#include "Platform/Foundation/NSIndexPath.h"
#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/Foundation/NSTimer.h"
#include "Platform/Foundation/Protocol.h"
#include "Platform/Foundation/SEL.h"
#include "Platform/Foundation/ScopeExit.h"

namespace Foundation {

inline const ClassList foundationClasses{NSObject::classObject, NSTimer::classObject,
                                         NSIndexPath::classObject, NSCoder::classObject,
                                         NSBundle::classObject};

} // namespace Foundation
