#pragma once

#include "Platform/Foundation/Class.h"
#include "Platform/Foundation/Encoding.h"
#include "Platform/Foundation/NSObject.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace Foundation {

/// One argument or result on its way.
struct Passed {
    std::string_view kind;
    const std::type_info* form;

    /// Whether there may be none.
    bool isOptional;
};

/// What an operation takes and returns. One object for each combination of forms, so that comparing two is
/// comparing their addresses first.
struct Signature {
    Passed result;
    std::span<const Passed> arguments;

    /// Calls a method of this signature where the sender knows no more of some arguments than that there are
    /// none: these are null in `arguments`, the others point to their forms. `result` points to an optional
    /// form.
    void (*callWithAbsent)(const Method& method, NSObject* receiver, const Call& call,
                           const void* const* arguments, void* result);
};

/// The function in a method table: the receiver (nothing for an operation of a class), the call, the
/// arguments.
template <class Result, class... Arguments>
using MethodFunction = ReturnedForm<Result> (*)(NSObject*, const Call&, PassedForm<Arguments>...);

template <class Form>
inline constexpr bool isOptionalForm =
    std::is_convertible_v<std::nullptr_t, Form> || std::is_convertible_v<std::nullopt_t, Form>;

template <class Form>
inline constexpr Passed passed{EncodingOf<Form>::kind, &typeid(Form), isOptionalForm<Form>};

template <class... Forms>
inline constexpr std::array<Passed, sizeof...(Forms)> passedForms{passed<Forms>...};

template <class Form>
const Form& formOrAbsent(const void* argument) {
    if constexpr (isOptionalForm<Form>) {
        static const Form absent{};
        return argument ? *static_cast<const Form*>(argument) : absent;
    } else {
        return *static_cast<const Form*>(argument);
    }
}

template <class Result, class... Forms, std::size_t... indices>
void callWithAbsentArguments(const Method& method, NSObject* receiver, const Call& call,
                             [[maybe_unused]] const void* const* arguments, [[maybe_unused]] void* result,
                             std::index_sequence<indices...> /*positions*/) {
    const auto function = reinterpret_cast<MethodFunction<Result, Forms...>>(method.function);
    if constexpr (std::is_void_v<Result>) {
        function(receiver, call, formOrAbsent<Forms>(arguments[indices])...);
    } else {
        *static_cast<std::optional<Result>*>(result) =
            function(receiver, call, formOrAbsent<Forms>(arguments[indices])...);
    }
}

template <class Result, class... Forms>
void callWithAbsent(const Method& method, NSObject* receiver, const Call& call, const void* const* arguments,
                    void* result) {
    callWithAbsentArguments<Result, Forms...>(method, receiver, call, arguments, result,
                                              std::index_sequence_for<Forms...>());
}

template <class Result, class... Forms>
inline constexpr Signature signatureOf{passed<Result>, passedForms<Forms...>,
                                       &callWithAbsent<Result, Forms...>};

/// The one signature of all that travel in the same forms.
template <class Result, class... Arguments>
constexpr const Signature& signature() {
    return signatureOf<ReturnedForm<Result>, typename EncodingOf<Arguments>::Form...>;
}

/// The method for the message. Reports when there is none, and when it takes or gives other kinds.
const Method& methodFor(const Call& call, const MethodTable& methods, const Signature& given);

template <class Result, class... Arguments>
inline Result callMethod(const Method& method, NSObject* receiver, const Call& call,
                         Arguments&&... arguments) {
    const auto function = reinterpret_cast<MethodFunction<Result, Arguments...>>(method.function);
    if constexpr (std::is_void_v<Result>) {
        function(receiver, call, EncodingOf<Arguments>::encode(arguments)...);
    } else {
        return EncodingOf<Result>::decode(
            function(receiver, call, EncodingOf<Arguments>::encode(arguments)...), call);
    }
}

template <class Result, class... Forms>
Result callMethodWithAbsent(const Method& method, NSObject* receiver, const Call& call,
                            const Forms&... forms) {
    const auto address = []<class Form>(const Form& form) -> const void* {
        return std::is_null_pointer_v<Form> ? nullptr : static_cast<const void*>(&form);
    };
    const std::array<const void*, sizeof...(Forms)> arguments{address(forms)...};
    if constexpr (std::is_void_v<Result>) {
        method.signature->callWithAbsent(method, receiver, call, arguments.data(), nullptr);
    } else {
        std::optional<ReturnedForm<Result>> result;
        method.signature->callWithAbsent(method, receiver, call, arguments.data(), &result);
        return EncodingOf<Result>::decode(*result, call);
    }
}

// Kept out of line, so that a message that finds its method at the first look saves no registers for this.
template <class Result, class... Arguments>
[[gnu::noinline]] Result searchAndCallMethod(const MethodTable& methods, NSObject* receiver, const Call& call,
                                             Arguments&&... arguments) {
    const Method& method = methodFor(call, methods, signature<Result, Arguments...>());
    if constexpr ((std::is_null_pointer_v<typename EncodingOf<Arguments>::Form> || ...)) {
        return callMethodWithAbsent<Result>(method, receiver, call,
                                            EncodingOf<Arguments>::encode(arguments)...);
    } else {
        return callMethod<Result>(method, receiver, call, std::forward<Arguments>(arguments)...);
    }
}

template <class Result, class... Arguments>
inline Result sendMessage(const MethodTable& methods, NSObject* receiver, const Call& call,
                          Arguments&&... arguments) {
    static_assert(!std::is_reference_v<Result> && !std::is_same_v<Result, std::string_view>,
                  "what an operation gives back is gone by the time a view of it is looked at");
    const Method& method = methods.candidate(call.selector);
    if (method.selector == call.selector && method.signature == &signature<Result, Arguments...>()) {
        return callMethod<Result>(method, receiver, call, std::forward<Arguments>(arguments)...);
    }
    return searchAndCallMethod<Result>(methods, receiver, call, std::forward<Arguments>(arguments)...);
}

template <class Result, class... Arguments>
inline Result NSObject::send(SEL selector, Arguments&&... arguments) {
    return sendMessage<Result>(isa().methods(), this, Call{isa(), selector},
                               std::forward<Arguments>(arguments)...);
}

template <class Result, class... Arguments>
inline Result Class::send(SEL selector, Arguments&&... arguments) const {
    return sendMessage<Result>(classMethods(), nullptr, Call{*this, selector},
                               std::forward<Arguments>(arguments)...);
}

} // namespace Foundation
