#include "Platform/Foundation/FatalError.h"

#include <cstdlib>
#include <iostream>
#include <string>

namespace Foundation {

void fatalError(std::string_view message) {
    std::cerr << "Fatal error: " << message << std::endl;
    std::abort();
}

void unimplementedInitializer(std::string_view initializer, std::string_view className) {
    fatalError("Use of unimplemented initializer '" + std::string(initializer) + "' for class '" +
               std::string(className) + "'");
}

void stopSilently() { std::abort(); }

} // namespace Foundation
