#pragma once

#include "Platform/Foundation/Block.h"
#include "Platform/Foundation/Class.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/Protocol.h"
#include "Platform/Foundation/SEL.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace Foundation {

/// A message on its way, for reports.
struct Call {
    const Class& receiver;
    SEL selector;
};

/// Reports a message in which something was `given` where something else was `expected`.
[[noreturn]] void reportWrongKind(const Call& call, std::string_view expected, std::string_view given);

/// How a C++ type travels through message dispatch. Types of one kind share one form on the way, so that a
/// sender's `int` reaches a parameter of 64 bits and a sender's slider a parameter that takes any view:
/// - `Form`: what is passed,
/// - `kind`: its name in reports,
/// - `encode`: from the sender's value (or the operation's result),
/// - `decode`: into the operation's parameter (or the sender's result); stops the program if it can't be one.
/// A type without a rule of its own is passed as it is and must match exactly. Whatever may be absent (an
/// object, a block, an optional) can be sent as `nullptr` or `std::nullopt`.
template <class T>
struct Encoding {
    using Form = T;
    static constexpr std::string_view kind = "value";
    static const T& encode(const T& value) { return value; }
    static const T& decode(const T& value, const Call& /*call*/) { return value; }
};

template <>
struct Encoding<void> {
    using Form = void;
    static constexpr std::string_view kind = "nothing";
};

template <>
struct Encoding<bool> {
    using Form = bool;
    static constexpr std::string_view kind = "boolean";
    static bool encode(bool value) { return value; }
    static bool decode(bool value, const Call& /*call*/) { return value; }
};

template <class T>
requires((std::integral<T> || std::is_enum_v<T>)&&!std::same_as<T, bool>) struct Encoding<T> {
    using Form = std::int64_t;
    static constexpr std::string_view kind = "integer";
    static Form encode(T value) {
        const Form form = static_cast<Form>(value);
        if ((form < 0) != (value < T{})) {
            fatalError("An integer of more than 63 bits can't be sent");
        }
        return form;
    }
    static T decode(Form value, const Call& call) {
        const auto result = static_cast<Integer>(value);
        if (static_cast<Form>(result) != value || (result < Integer{}) != (value < 0)) {
            reportWrongKind(call, "another range of integers", std::to_string(value));
        }
        return static_cast<T>(result);
    }

private:
    using Integer =
        typename std::conditional_t<std::is_enum_v<T>, std::underlying_type<T>, std::type_identity<T>>::type;
};

template <std::floating_point T>
struct Encoding<T> {
    using Form = double;
    static constexpr std::string_view kind = "number";
    static Form encode(T value) { return static_cast<Form>(value); }
    static T decode(Form value, const Call& /*call*/) { return static_cast<T>(value); }
};

template <>
struct Encoding<std::optional<std::string>> {
    using Form = std::optional<std::string>;
    static constexpr std::string_view kind = "text";
    static const Form& encode(const Form& value) { return value; }
    static const Form& decode(const Form& value, const Call& /*call*/) { return value; }
};

template <class T>
requires(std::convertible_to<T, std::string_view> && !std::same_as<T, std::nullptr_t>) struct Encoding<T> {
    using Form = std::optional<std::string>;
    static constexpr std::string_view kind = "text";
    static Form encode(const T& value) { return std::string(std::string_view(value)); }
    static T decode(const Form& value, const Call& call) {
        if (!value) {
            reportWrongKind(call, kind, "no text");
        }
        return T(*value);
    }
};

template <class T>
requires(std::derived_from<T, NSObject>) struct Encoding<std::shared_ptr<T>> {
    using Form = std::shared_ptr<NSObject>;
    static constexpr std::string_view kind = "object";
    static const Form& encode(const std::shared_ptr<T>& value) requires(std::same_as<T, NSObject>) {
        return value;
    }
    static Form encode(const std::shared_ptr<T>& value) { return value; }
    static std::shared_ptr<T> decode(const Form& value, const Call& call) {
        if constexpr (std::same_as<T, NSObject>) {
            return value;
        } else {
            std::shared_ptr<T> result = as<T>(value);
            if (value && !result) {
                reportWrongKind(call, T::classObject().name(), value->isa().name());
            }
            return result;
        }
    }
};

template <class T>
requires(std::derived_from<T, Protocol> &&
         !std::derived_from<T, NSObject>) struct Encoding<std::shared_ptr<T>> {
    using Form = std::shared_ptr<NSObject>;
    static constexpr std::string_view kind = "object";
    static Form encode(const std::shared_ptr<T>& value) {
        return value ? Form(value, &value->asObject()) : nullptr;
    }
    static std::shared_ptr<T> decode(const Form& value, const Call& call) {
        std::shared_ptr<T> result = as<T>(value);
        if (value && !result) {
            reportWrongKind(call, "an adopter of the protocol", value->isa().name());
        }
        return result;
    }
};

template <>
struct Encoding<std::nullptr_t> {
    using Form = std::nullptr_t;
    static constexpr std::string_view kind = "nothing";
    static Form encode(std::nullptr_t) { return nullptr; }
};

template <>
struct Encoding<std::nullopt_t> : Encoding<std::nullptr_t> {
    static Form encode(std::nullopt_t) { return nullptr; }
};

template <class T>
struct Encoding<std::optional<std::vector<T>>> {
    using Form = std::optional<std::vector<T>>;
    static constexpr std::string_view kind = "list";
    static const Form& encode(const Form& value) { return value; }
    static const Form& decode(const Form& value, const Call& /*call*/) { return value; }
};

template <class T>
struct Encoding<std::vector<T>> {
    using Form = std::optional<std::vector<T>>;
    static constexpr std::string_view kind = "list";
    static Form encode(const std::vector<T>& value) { return value; }
    static const std::vector<T>& decode(const Form& value, const Call& call) {
        if (!value) {
            reportWrongKind(call, kind, "no list");
        }
        return *value;
    }
};

template <class Closure>
struct Encoding<std::function<Closure>> {
    using Form = Block<Closure>;
    static constexpr std::string_view kind = "block";
    static Form encode(const std::function<Closure>& value) { return Form(value); }
    static std::function<Closure> decode(const Form& value, const Call& /*call*/) { return value.closure(); }
};

template <class Closure>
struct Encoding<Block<Closure>> {
    using Form = Block<Closure>;
    static constexpr std::string_view kind = "block";
    static const Form& encode(const Form& value) { return value; }
    static const Form& decode(const Form& value, const Call& /*call*/) { return value; }
};

/// What is sent as it is called: a lambda, a function. It reaches a parameter that takes a closure of the
/// very same arguments and result.
template <class T>
concept Callable = requires(const T& value) {
    std::function(value);
};

template <Callable T>
struct Encoding<T> {
    using Function = decltype(std::function(std::declval<const T&>()));
    using Form = typename Encoding<Function>::Form;
    static constexpr std::string_view kind = Encoding<Function>::kind;
    static Form encode(const T& value) { return Form(Function(value)); }
};

template <class T>
using EncodingOf = Encoding<std::decay_t<T>>;

/// The form in which a function takes an argument: small ones by value, others by reference.
template <class T>
using PassedForm = std::conditional_t<std::is_scalar_v<typename EncodingOf<T>::Form>,
                                      typename EncodingOf<T>::Form, const typename EncodingOf<T>::Form&>;

template <class T>
using ReturnedForm = typename EncodingOf<T>::Form;

} // namespace Foundation
