#include "Platform/Foundation/Message.h"

#include "Platform/Foundation/FatalError.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace Foundation {

namespace {

std::string describe(const Signature& signature) {
    std::string text = "(";
    for (const Passed& each : signature.arguments) {
        text += text.size() > 1 ? ", " : "";
        text += each.kind;
    }
    return text + ") giving " + std::string(signature.result.kind);
}

bool accepts(const Passed& taken, const Passed& given) {
    return *given.form == *taken.form || (taken.isOptional && *given.form == typeid(std::nullptr_t));
}

bool accepts(const Signature& taken, const Signature& given) {
    return *given.result.form == *taken.result.form &&
           std::equal(taken.arguments.begin(), taken.arguments.end(), given.arguments.begin(),
                      given.arguments.end(),
                      [](const Passed& one, const Passed& other) { return accepts(one, other); });
}

std::string describe(const Call& call) {
    return "selector '" + std::string(call.selector.name()) + "' of class '" + call.receiver.name() + "'";
}

} // namespace

void reportWrongKind(const Call& call, std::string_view expected, std::string_view given) {
    fatalError("Wrong kind for " + describe(call) + ": expected " + std::string(expected) + ", was sent " +
               std::string(given));
}

const Method& methodFor(const Call& call, const MethodTable& methods, const Signature& given) {
    const Method* method = methods.find(call.selector);
    if (!method) {
        fatalError("Unrecognized selector '" + std::string(call.selector.name()) + "' sent to class '" +
                   call.receiver.name() + "'");
    }
    // Types are compared, as shared libraries may have a copy of one signature each.
    if (!accepts(*method->signature, given)) {
        fatalError("Wrong kind for " + describe(call) + ": takes " + describe(*method->signature) +
                   ", was sent " + describe(given));
    }
    return *method;
}

} // namespace Foundation
