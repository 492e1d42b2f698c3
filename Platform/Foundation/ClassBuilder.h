#pragma once

#include "Platform/Foundation/FatalError.h"
#include "Platform/Foundation/Message.h"
#include "Platform/Foundation/NSObject.h"

#include <cctype>
#include <string>
#include <string_view>
#include <type_traits>

namespace Foundation {

/// Picks one of several overloads: `overload<void(float, bool)>(&UISlider::setValue)`.
template <class Arguments, class T>
constexpr auto overload(Arguments T::*operation) {
    return operation;
}

/// Declares a class for message dispatch, inside its `classObject`:
///
///     static const Class& object = ClassBuilder<Watcher, NSObject>("Example.Watcher")
///                                      .method<&Watcher::tick>("tick")
///                                      .property<&Watcher::delay, &Watcher::setDelay>("delay")
///                                      .adopts<UIEventObserver>()
///                                      .build();
///
/// Only what is listed can be reached by name. A send runs the operation as the object's own class overrides
/// it.
template <class T, class Superclass = void>
class ClassBuilder {
public:
    /// `name` with its module ("KivUICore.TopBar"), unlike any other class's, which is a fatal report.
    explicit ClassBuilder(std::string_view name) : class_(*new Class(name, superclass(), allocation())) {}

    /// `selector` with a colon for each parameter; another number is a fatal report.
    template <auto operation>
    ClassBuilder& method(SEL selector) {
        class_.methods_.set(methodFor<operation>(selector, operation));
        return *this;
    }

    /// Reads by `name`, writes by `setName:`; without a `setter` it only reads.
    template <auto getter, auto setter = nullptr>
    ClassBuilder& property(std::string_view name) {
        method<getter>(name);
        if constexpr (!std::is_null_pointer_v<decltype(setter)>) {
            method<setter>(setterName(name));
        }
        return *this;
    }

    /// An `init` overload, by the types of its parameters.
    template <class... Arguments>
    ClassBuilder& initializer(SEL selector) {
        return method<static_cast<bool (T::*)(Arguments...)>(&T::init)>(selector);
    }

    /// A static function, sent to the class.
    template <auto function>
    ClassBuilder& classMethod(SEL selector) {
        class_.classMethods_.set(classMethodFor<function>(selector, function));
        return *this;
    }

    template <auto getter>
    ClassBuilder& classProperty(std::string_view name) {
        return classMethod<getter>(name);
    }

    /// All required operations of a protocol.
    template <class AdoptedProtocol>
    ClassBuilder& adopts() {
        AdoptedProtocol::describe(*this);
        return *this;
    }

    const Class& build() { return class_; }

private:
    static const Class* superclass() {
        if constexpr (std::is_void_v<Superclass>) {
            return nullptr;
        } else {
            static_assert(std::is_base_of_v<Superclass, T>);
            return &Superclass::classObject();
        }
    }

    static Class::Allocation allocation() {
        if constexpr (std::is_abstract_v<T>) {
            return nullptr;
        } else {
            return [] { return std::shared_ptr<NSObject>(allocate<T>()); };
        }
    }

    static std::string setterName(std::string_view name) {
        std::string result = "set" + std::string(name) + ":";
        result[3] = static_cast<char>(std::toupper(static_cast<unsigned char>(result[3])));
        return result;
    }

    template <auto operation, class Owner, class Result, class... Arguments>
    Method methodFor(SEL selector, Result (Owner::*)(Arguments...)) {
        return entry<Result, Arguments...>(selector, &call<operation, Result, Arguments...>);
    }

    template <auto operation, class Owner, class Result, class... Arguments>
    Method methodFor(SEL selector, Result (Owner::*)(Arguments...) const) {
        return entry<Result, Arguments...>(selector, &call<operation, Result, Arguments...>);
    }

    template <auto function, class Result, class... Arguments>
    Method classMethodFor(SEL selector, Result (*)(Arguments...)) {
        return entry<Result, Arguments...>(selector, &callClass<function, Result, Arguments...>);
    }

    template <class Result, class... Arguments>
    Method entry(SEL selector, MethodFunction<Result, Arguments...> function) {
        if (selector.argumentCount() != sizeof...(Arguments)) {
            fatalError("Selector '" + std::string(selector.name()) + "' of class '" + class_.name() +
                       "' stands for an operation with another number of arguments");
        }
        return {selector, &signature<Result, Arguments...>(), reinterpret_cast<void (*)()>(function)};
    }

    template <auto operation, class Result, class... Arguments>
    static ReturnedForm<Result> call(NSObject* receiver, const Call& call,
                                     PassedForm<Arguments>... arguments) {
        T& object = static_cast<T&>(*receiver);
        if constexpr (std::is_void_v<Result>) {
            (object.*operation)(EncodingOf<Arguments>::decode(arguments, call)...);
        } else {
            return EncodingOf<Result>::encode(
                (object.*operation)(EncodingOf<Arguments>::decode(arguments, call)...));
        }
    }

    template <auto function, class Result, class... Arguments>
    static ReturnedForm<Result> callClass(NSObject* /*receiver*/, const Call& call,
                                          PassedForm<Arguments>... arguments) {
        if constexpr (std::is_void_v<Result>) {
            function(EncodingOf<Arguments>::decode(arguments, call)...);
        } else {
            return EncodingOf<Result>::encode(function(EncodingOf<Arguments>::decode(arguments, call)...));
        }
    }

    Class& class_;
};

} // namespace Foundation
