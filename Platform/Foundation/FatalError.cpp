#include "Platform/Foundation/FatalError.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace Foundation {

void fatalError(std::string_view message) {
    const std::string line = "Fatal error: " + std::string(message) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::abort();
}

void unimplementedInitializer(std::string_view initializer, std::string_view className) {
    fatalError("Use of unimplemented initializer '" + std::string(initializer) + "' for class '" +
               std::string(className) + "'");
}

void missingObject(std::string_view what, std::string_view operation, std::string_view className) {
    fatalError("No " + std::string(what) + " for '" + std::string(operation) + "' of class '" +
               std::string(className) + "'");
}

void stopSilently() { std::abort(); }

} // namespace Foundation
