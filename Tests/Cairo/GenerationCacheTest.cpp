#include "Hosts/Cairo/GenerationCache.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace KivUICore::Cairo {

namespace {

using Cache = GenerationCache<int, std::string, std::hash<int>, std::equal_to<>>;

TEST(GenerationCache, FindsWhatWasInserted) {
    Cache cache(2);
    cache.insert(1, "one");
    ASSERT_NE(cache.find(1), nullptr);
    EXPECT_EQ(*cache.find(1), "one");
    EXPECT_EQ(cache.find(2), nullptr);
}

TEST(GenerationCache, KeepsWhatIsAskedForWhileOthersComeAndGo) {
    Cache cache(2);
    cache.insert(0, "kept");
    for (int key = 1; key < 100; ++key) {
        cache.insert(key, "passing");
        ASSERT_NE(cache.find(0), nullptr) << key;
    }
    EXPECT_EQ(*cache.find(0), "kept");
}

TEST(GenerationCache, ForgetsWhatIsNoLongerAskedFor) {
    Cache cache(2);
    for (int key = 0; key < 100; ++key) {
        cache.insert(key, "passing");
    }
    int found = 0;
    for (int key = 0; key < 100; ++key) {
        found += cache.find(key) != nullptr ? 1 : 0;
    }
    EXPECT_LE(found, 4);
    EXPECT_NE(cache.find(99), nullptr);
}

} // namespace

} // namespace KivUICore::Cairo
