#include "Platform/Foundation/Foundation.h"

#include <gtest/gtest.h>

namespace {

using namespace Foundation;

TEST(NSIndexPathTest, APathIsReadDirectlyAndByName) {
    const auto path = make<NSIndexPath>(3, 1);
    EXPECT_EQ(path->row(), 3);
    EXPECT_EQ(path->section(), 1);
    EXPECT_EQ(path->send<std::int64_t>("row"), 3);
    EXPECT_EQ(path->send<std::int64_t>("section"), 1);
}

TEST(NSIndexPathTest, APathOfNothingIsTheFirstRow) {
    const auto path = make<NSIndexPath>();
    EXPECT_EQ(path->row(), 0);
    EXPECT_EQ(path->section(), 0);
}

} // namespace
