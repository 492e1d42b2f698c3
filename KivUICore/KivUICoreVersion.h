#pragma once

extern "C" {

/// 1.0
extern const double KivUICoreVersionNumber;

/// The line by which the library can be told from its binary.
extern const char KivUICoreVersionString[];
}
