#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Foundation {

/// The name of an operation, interned: two selectors are equal when their pointers are. Making one from text
/// looks it up; keep it where it is used often. Selectors live as long as the program.
class SEL {
public:
    /// No operation.
    SEL() = default;

    // Implicit, so that a send or a registration may name its operation in plain text.
    SEL(const char* name) : SEL(std::string_view(name)) {}
    SEL(const std::string& name) : SEL(std::string_view(name)) {}
    SEL(std::string_view name) : entry_(intern(name)) {}

    std::string_view name() const { return entry_ ? std::string_view(entry_->name) : std::string_view(); }

    /// How many arguments the operation takes: the number of colons in its name.
    std::size_t argumentCount() const { return entry_ ? entry_->argumentCount : 0; }

    /// For tables: counts up with every name, so that the selectors of one class rarely meet in one slot.
    std::size_t hash() const { return entry_ ? entry_->index : 0; }

    explicit operator bool() const { return entry_ != nullptr; }
    friend bool operator==(const SEL&, const SEL&) = default;

private:
    friend class SelectorTable;

    struct Entry {
        std::string name;
        std::size_t index;
        std::size_t argumentCount;
    };

    static const Entry* intern(std::string_view name);

    const Entry* entry_ = nullptr;
};

} // namespace Foundation
