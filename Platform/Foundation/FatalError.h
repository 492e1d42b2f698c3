#pragma once

#include <string_view>

namespace Foundation {

/// Ends the program for a promise that its programmer broke: one line "Fatal error: …" on standard error,
/// then abort.
[[noreturn]] void fatalError(std::string_view message);

/// The report of an initializer that a class inherits but doesn't support. `className` with its module, for
/// instance "KivUICore.TopBar"; `initializer` with its labels, for instance "init(superview:frame:)".
[[noreturn]] void unimplementedInitializer(std::string_view initializer, std::string_view className);

/// The report of an operation that has nothing where it needs something. `what` in words, for instance "host
/// view"; `operation` by its selector or, for an initializer, with its labels.
[[noreturn]] void missingObject(std::string_view what, std::string_view operation,
                                std::string_view className);

/// Ends the program without a word, where the contract says that nothing is printed.
[[noreturn]] void stopSilently();

} // namespace Foundation
