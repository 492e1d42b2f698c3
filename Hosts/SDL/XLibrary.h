#pragma once

namespace KivUICore::SDL {

/// A function of the X library by its name, which `Function` is the type of; null on a machine without that
/// library. SDL loads it only where it draws by it, and so does this.
void* xFunction(const char* name);

template <class Function>
Function* xFunction(const char* name) {
    return reinterpret_cast<Function*>(xFunction(name));
}

} // namespace KivUICore::SDL
