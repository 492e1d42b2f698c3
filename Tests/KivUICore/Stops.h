#pragma once

#include <csignal>
#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

// Whatever the statement prints goes where the test looks for it.
#define EXPECT_STOP_PRINTING(statement, text)                                                                \
    EXPECT_EXIT(                                                                                             \
        {                                                                                                    \
            std::setvbuf(stdout, nullptr, _IONBF, 0);                                                        \
            dup2(STDERR_FILENO, STDOUT_FILENO);                                                              \
            statement;                                                                                       \
        },                                                                                                   \
        testing::KilledBySignal(SIGABRT), testing::StrEq(text))

/// The statement aborts and prints nothing at all.
#define EXPECT_SILENT_STOP(statement) EXPECT_STOP_PRINTING(statement, "")

/// The statement aborts with just the report of an initializer that isn't there.
#define EXPECT_UNIMPLEMENTED(statement, initializer, className)                                              \
    EXPECT_STOP_PRINTING(statement, std::string("Fatal error: Use of unimplemented initializer '") +         \
                                        (initializer) + "' for class '" + (className) + "'\n")
