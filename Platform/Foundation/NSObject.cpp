#include "Platform/Foundation/NSObject.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"

namespace Foundation {

const Class& NSObject::classObject() {
    static const Class& object = ClassBuilder<NSObject>("Foundation.NSObject").initializer<>("init").build();
    return object;
}

bool NSObject::init() { return true; }

bool NSObject::isKindOfClass(const Class& other) const { return isa().isSubclassOf(other); }

bool NSObject::respondsToSelector(SEL selector) const { return isa().method(selector) != nullptr; }

void NSObject::reportMissing(std::string_view what, std::string_view operation) const {
    missingObject(what, operation, isa().name());
}

} // namespace Foundation
