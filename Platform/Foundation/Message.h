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

// Kept out of line, so that a message that finds its method at the first look saves no registers for this.
template <class Result, class... Arguments>
[[gnu::noinline]] Result searchAndCallMethod(const MethodTable& methods, NSObject* receiver, const Call& call,
                                             Arguments&&... arguments) {
    return callMethod<Result>(methodFor(call, methods, signature<Result, Arguments...>()), receiver, call,
                              std::forward<Arguments>(arguments)...);
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
