#pragma once

#include "Platform/Foundation/NSObject.h"

namespace Foundation {

/// Base of every protocol: a set of operations that classes of different ancestry adopt. A protocol declares
/// its required operations as pure virtual ones and lists them for dispatch in a static
/// `describe(ClassBuilder<Adopter>&)`; optional ones are reached through dispatch alone.
class Protocol {
public:
    /// The adopter itself.
    virtual NSObject& asObject() = 0;

    bool respondsToSelector(SEL selector) { return asObject().respondsToSelector(selector); }

    template <class Result = void, class... Arguments>
    Result send(SEL selector, Arguments&&... arguments) {
        return asObject().template send<Result>(selector, std::forward<Arguments>(arguments)...);
    }

protected:
    ~Protocol() = default;
};

/// What a class derives from to adopt protocols: `class Watcher : public Adopting<NSObject,
/// UIEventObserver>`.
template <class Base, class... Protocols>
class Adopting : public Base, public Protocols... {
public:
    NSObject& asObject() override { return *this; }

    // Found on both sides; the object's own are meant.
    using Base::respondsToSelector;
    using Base::send;
};

} // namespace Foundation
