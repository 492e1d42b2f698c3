#pragma once

#include <cstddef>

/// How often `operator new` was called in this program, on whichever thread.
std::size_t allocationCount();
