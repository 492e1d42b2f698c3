#include "KivUICore/KivUICoreVersion.h"

#include <gtest/gtest.h>
#include <string_view>

namespace {

TEST(VersionTest, TheNumberIsOne) { EXPECT_EQ(KivUICoreVersionNumber, 1.0); }

TEST(VersionTest, TheStringNamesProgramAndProjectAndEndsItsLine) {
    EXPECT_EQ(std::string_view(KivUICoreVersionString), "@(#)PROGRAM:KivUICore  PROJECT:KivUICore-1\n");
}

} // namespace
