#pragma once

#include "Platform/Foundation/Class.h"
#include "Platform/Foundation/Encoding.h"
#include "Platform/Foundation/NSObject.h"

#include <array>
#include <span>
#include <string_view>
#include <typeinfo>

namespace Foundation {

/// The kinds that an operation takes and returns, and the exact type of the function behind it. One object
/// for each combination, so that comparing two is comparing their addresses first.
struct Signature {
    std::string_view result;
    std::span<const std::string_view> arguments;
    const std::type_info* type;
};

/// The function in a method table: the receiver (nothing for an operation of a class), the call, the
/// arguments.
template <class Result, class... Arguments>
using MethodFunction = ReturnedForm<Result> (*)(NSObject*, const Call&, PassedForm<Arguments>...);

template <class... Arguments>
inline constexpr std::array<std::string_view, sizeof...(Arguments)> kindsOf{EncodingOf<Arguments>::kind...};

template <class Result, class... Arguments>
inline constexpr Signature signatureOf{EncodingOf<Result>::kind,
                                       kindsOf<typename EncodingOf<Arguments>::Form...>,
                                       &typeid(MethodFunction<Result, Arguments...>)};

/// The one signature of all that travel in the same forms.
template <class Result, class... Arguments>
constexpr const Signature& signature() {
    return signatureOf<ReturnedForm<Result>, typename EncodingOf<Arguments>::Form...>;
}

[[noreturn]] void reportUnrecognizedSelector(const Call& call);
[[noreturn]] void reportWrongSignature(const Call& call, const Signature& expected, const Signature& given);

template <class Result, class... Arguments>
Result sendMessage(NSObject* receiver, const Call& call, const Method* method, Arguments&&... arguments) {
    if (!method) {
        reportUnrecognizedSelector(call);
    }
    const Signature& given = signature<Result, Arguments...>();
    if (method->signature != &given && *method->signature->type != *given.type) {
        reportWrongSignature(call, *method->signature, given);
    }
    const auto function = reinterpret_cast<MethodFunction<Result, Arguments...>>(method->function);
    if constexpr (std::is_void_v<Result>) {
        function(receiver, call, EncodingOf<Arguments>::encode(arguments)...);
    } else {
        return EncodingOf<Result>::decode(
            function(receiver, call, EncodingOf<Arguments>::encode(arguments)...), call);
    }
}

template <class Result, class... Arguments>
Result NSObject::send(SEL selector, Arguments&&... arguments) {
    return sendMessage<Result>(this, Call{isa(), selector}, isa().method(selector),
                               std::forward<Arguments>(arguments)...);
}

template <class Result, class... Arguments>
Result Class::send(SEL selector, Arguments&&... arguments) const {
    return sendMessage<Result>(nullptr, Call{*this, selector}, classMethod(selector),
                               std::forward<Arguments>(arguments)...);
}

} // namespace Foundation
