#include "Platform/Foundation/FatalError.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Foundation;
using testing::Eq;

TEST(FatalErrorDeathTest, AFatalErrorIsOneLineAndAnAbort) {
    EXPECT_EXIT(fatalError("Something broke"), testing::KilledBySignal(SIGABRT),
                Eq("Fatal error: Something broke\n"));
}

TEST(FatalErrorDeathTest, AnUnimplementedInitializerNamesItselfAndTheClass) {
    EXPECT_EXIT(unimplementedInitializer("init(superview:frame:)", "KivUICore.TopBar"),
                testing::KilledBySignal(SIGABRT),
                Eq("Fatal error: Use of unimplemented initializer 'init(superview:frame:)' for class "
                   "'KivUICore.TopBar'\n"));
}

TEST(FatalErrorDeathTest, ASilentStopPrintsNothing) {
    EXPECT_EXIT(stopSilently(), testing::KilledBySignal(SIGABRT), Eq(""));
}

} // namespace
