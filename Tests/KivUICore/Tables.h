#pragma once

#include "Platform/Foundation/Class.h"

#include <cstdint>
#include <cstring>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace KivUICoreTests {

inline std::set<std::string> names(const std::vector<Foundation::SEL>& selectors) {
    std::set<std::string> result;
    for (const Foundation::SEL selector : selectors) {
        result.emplace(selector.name());
    }
    return result;
}

/// The operations that a class adds to those of its superclass.
inline std::set<std::string> ownSelectors(const Foundation::Class& object) {
    std::set<std::string> result = names(object.selectors());
    for (const std::string& inherited : names(object.superclass()->selectors())) {
        result.erase(inherited);
    }
    return result;
}

/// The place of an overridable operation in its class's table of virtual functions, as the C++ ABI of g++ and
/// clang numbers them; nothing for one that can't be overridden.
template <class Operation>
std::optional<std::size_t> slotOf(Operation operation) {
    struct {
        std::uintptr_t pointer;
        std::intptr_t adjustment;
    } parts{};
    static_assert(sizeof parts == sizeof operation);
    std::memcpy(&parts, &operation, sizeof parts);
#if defined(__arm__) || defined(__aarch64__)
    const bool isVirtual = (parts.adjustment & 1) != 0;
    const std::uintptr_t offset = parts.pointer;
#else
    const bool isVirtual = (parts.pointer & 1U) != 0;
    const std::uintptr_t offset = parts.pointer - 1U;
#endif
    return isVirtual ? std::optional<std::size_t>(offset / sizeof(void*)) : std::nullopt;
}

} // namespace KivUICoreTests
