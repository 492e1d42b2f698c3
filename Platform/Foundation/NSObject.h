#pragma once

#include "Platform/Foundation/SEL.h"

#include <memory>
#include <string_view>
#include <utility>

namespace Foundation {

class Class;

/// The root of every class. Objects are held by std::shared_ptr and made by `make<T>(arguments…)` alone,
/// which allocates one and runs the `init` overload that takes the arguments. Everything happens on one
/// thread.
class NSObject : public std::enable_shared_from_this<NSObject> {
public:
    NSObject(const NSObject&) = delete;
    NSObject& operator=(const NSObject&) = delete;
    virtual ~NSObject() = default;

    /// The class's method table. A subclass that wants one of its own declares a function like this; one that
    /// doesn't shares its superclass's.
    static const Class& classObject();

    /// An initializer says whether there is an object: false makes `make` yield nothing. It may call
    /// overridable operations, and the object may be referred to from inside.
    virtual bool init();

    /// The class that the object was made as.
    const Class& isa() const { return *isa_; }

    /// True for the class the object was made as and for its superclasses. A class without a method table of
    /// its own is its superclass here; `as` tells them apart.
    bool isKindOfClass(const Class& other) const;

    bool respondsToSelector(SEL selector) const;

    /// Calls the operation of that name with arguments of its kinds. A name that the class doesn't have, and
    /// an argument or a result of another kind, are fatal reports. A sender includes Message.h.
    template <class Result = void, class... Arguments>
    Result send(SEL selector, Arguments&&... arguments);

protected:
    NSObject() = default;

    /// A fatal report unless there is an object: `what` it is, and which of this class's operations needs it.
    template <class T>
    void require(const std::shared_ptr<T>& object, std::string_view what, std::string_view operation) const {
        if (!object) {
            reportMissing(what, operation);
        }
    }

    /// Tear-down, run once when the last reference has gone and before any destructor: overridden operations
    /// still run as overridden, but no reference to the object can be made any more. An override calls its
    /// base's when it is done with what it inherits.
    virtual void dealloc() {}

    /// This object as a strong reference of a subclass's type. Not from inside `dealloc`.
    template <class T>
    std::shared_ptr<T> self(T* object) {
        return std::shared_ptr<T>(shared_from_this(), object);
    }

private:
    template <class T>
    friend class ObjectAllocator;

    [[noreturn]] void reportMissing(std::string_view what, std::string_view operation) const;

    const Class* isa_ = nullptr;
};

/// Allocates objects: installs the class when one is constructed and runs `dealloc` before one is destroyed.
template <class T>
class ObjectAllocator : public std::allocator<T> {
public:
    template <class U>
    struct rebind {
        using other = ObjectAllocator<U>;
    };

    ObjectAllocator() = default;
    template <class U>
    ObjectAllocator(const ObjectAllocator<U>&) {}

    template <class U>
    void construct(U* object) {
        ::new (static_cast<void*>(object)) U();
        static_cast<NSObject*>(object)->isa_ = &U::classObject();
    }

    template <class U>
    void destroy(U* object) {
        static_cast<NSObject*>(object)->dealloc();
        object->~U();
    }
};

/// An object that no initializer has run on yet.
template <class T>
std::shared_ptr<T> allocate() {
    return std::allocate_shared<T>(ObjectAllocator<T>());
}

/// Makes an object with the `init` overload for the arguments; nothing if that says so.
template <class T, class... Arguments>
std::shared_ptr<T> make(Arguments&&... arguments) {
    std::shared_ptr<T> object = allocate<T>();
    if (!object->init(std::forward<Arguments>(arguments)...)) {
        return nullptr;
    }
    return object;
}

/// The object as a `T`, a class or a protocol, or nothing when it is empty or none. Tells classes apart that
/// share one method table.
template <class T, class U>
std::shared_ptr<T> as(const std::shared_ptr<U>& object) {
    return std::dynamic_pointer_cast<T>(object);
}

} // namespace Foundation
