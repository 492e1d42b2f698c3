#include "Platform/Foundation/Class.h"

#include "Platform/Foundation/FatalError.h"
#include "Platform/Foundation/NSObject.h"

#include <unordered_map>
#include <utility>

namespace Foundation {

namespace {

struct Registry {
    std::unordered_map<std::string_view, const Class*> classes;
    std::vector<ClassList::Provider> providers;
};

// Never destroyed, as the classes themselves.
Registry& registry() {
    static Registry& registry = *new Registry;
    return registry;
}

} // namespace

void MethodTable::set(const Method& method) {
    while (isTooSmallFor(method.selector)) {
        grow();
    }
    std::size_t slot = method.selector.hash() & mask_;
    while (slots_[slot].selector && slots_[slot].selector != method.selector) {
        slot = (slot + 1) & mask_;
    }
    count_ += slots_[slot].selector ? 0 : 1;
    slots_[slot] = method;
}

bool MethodTable::isTooSmallFor(SEL selector) const {
    const SEL present = candidate(selector).selector;
    const bool clashes = present && present != selector;
    return (count_ + 1) * (clashes ? 8 : 2) > slots_.size();
}

const Method* MethodTable::find(SEL selector) const {
    for (std::size_t slot = selector.hash() & mask_; slots_[slot].selector; slot = (slot + 1) & mask_) {
        if (slots_[slot].selector == selector) {
            return &slots_[slot];
        }
    }
    return nullptr;
}

void MethodTable::grow() {
    const std::vector<Method> old = std::exchange(slots_, std::vector<Method>(slots_.size() * 2));
    mask_ = slots_.size() - 1;
    count_ = 0;
    for (const Method& method : old) {
        if (method.selector) {
            set(method);
        }
    }
}

std::vector<SEL> MethodTable::selectors() const {
    std::vector<SEL> result;
    for (const Method& method : slots_) {
        if (method.selector) {
            result.push_back(method.selector);
        }
    }
    return result;
}

Class::Class(std::string_view name, const Class* superclass, Allocation allocation)
    : name_(name), superclass_(superclass), allocation_(allocation) {
    if (superclass) {
        methods_ = superclass->methods_;
        classMethods_ = superclass->classMethods_;
    }
    if (!registry().classes.emplace(name_, this).second) {
        fatalError("Class '" + name_ + "' is declared twice");
    }
}

const Class* Class::named(std::string_view name) {
    // A provider may make further lists known while it builds its class.
    while (!registry().providers.empty()) {
        const ClassList::Provider provider = registry().providers.back();
        registry().providers.pop_back();
        provider();
    }
    const auto found = registry().classes.find(name);
    return found == registry().classes.end() ? nullptr : found->second;
}

bool Class::isSubclassOf(const Class& other) const {
    for (const Class* each = this; each; each = each->superclass_) {
        if (each == &other) {
            return true;
        }
    }
    return false;
}

std::shared_ptr<NSObject> Class::alloc() const {
    if (!allocation_) {
        fatalError("Class '" + name_ + "' has no objects of its own");
    }
    return allocation_();
}

ClassList::ClassList(std::initializer_list<Provider> providers) {
    registry().providers.insert(registry().providers.end(), providers.begin(), providers.end());
}

} // namespace Foundation
