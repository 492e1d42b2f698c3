#pragma once

#include "Platform/Foundation/SEL.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Foundation {

class NSObject;
struct Signature;

/// One entry of a method table: a selector, the kinds it passes, and the function that does it.
struct Method {
    SEL selector;
    const Signature* signature = nullptr;
    void (*function)() = nullptr;
};

/// Methods by selector: an open-addressing table, never more than half full, and emptier where that lets a
/// method stand in its own place.
class MethodTable {
public:
    /// Adds the method, in place of one of the same selector.
    void set(const Method& method);

    /// Where the method is unless it had to give way to another: a look that needs no loop. May be of another
    /// selector, or of none.
    const Method& candidate(SEL selector) const { return slots_[selector.hash() & mask_]; }

    /// Nothing when there is none.
    const Method* find(SEL selector) const;

    std::vector<SEL> selectors() const;

private:
    bool isTooSmallFor(SEL selector) const;
    void grow();

    std::vector<Method> slots_ = std::vector<Method>(8);
    std::size_t mask_ = 7;
    std::size_t count_ = 0;
};

/// What is known of a class by name: its own name, its superclass and what can be sent to it and its objects.
/// Made by ClassBuilder, once, and alive as long as the program.
class Class {
public:
    Class(const Class&) = delete;
    Class& operator=(const Class&) = delete;

    /// The class of that name ("KivUICore.TopBar"), or nothing. Knows the classes of every ClassList and
    /// those that were used already.
    static const Class* named(std::string_view name);

    /// With its module: "KivUICore.TopBar".
    const std::string& name() const { return name_; }

    /// Nothing for the root class.
    const Class* superclass() const { return superclass_; }
    bool isSubclassOf(const Class& other) const;

    /// The operation that objects of the class, or the class itself, have under that selector, inherited ones
    /// included; nothing if there is none.
    const Method* method(SEL selector) const { return methods_.find(selector); }
    const Method* classMethod(SEL selector) const { return classMethods_.find(selector); }

    const MethodTable& methods() const { return methods_; }
    const MethodTable& classMethods() const { return classMethods_; }

    /// All that objects of the class can be sent, in no particular order.
    std::vector<SEL> selectors() const { return methods_.selectors(); }

    /// A new object that no initializer has run on; send it one. A class with operations left open, which
    /// can't have objects, is a fatal report.
    std::shared_ptr<NSObject> alloc() const;

    /// Calls an operation of the class itself. Reports as NSObject::send does; a sender includes Message.h.
    template <class Result = void, class... Arguments>
    Result send(SEL selector, Arguments&&... arguments) const;

private:
    template <class T, class Superclass>
    friend class ClassBuilder;

    using Allocation = std::shared_ptr<NSObject> (*)();

    Class(std::string_view name, const Class* superclass, Allocation allocation);

    std::string name_;
    const Class* superclass_;
    Allocation allocation_;
    MethodTable methods_;
    MethodTable classMethods_;
};

/// Makes a module's classes known by name before they are first used: one inline constant in the module's
/// umbrella header.
class ClassList {
public:
    using Provider = const Class& (*)();

    ClassList(std::initializer_list<Provider> providers);
};

} // namespace Foundation
