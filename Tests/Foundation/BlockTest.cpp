#include "Platform/Foundation/Block.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

using namespace Foundation;

TEST(BlockTest, ABlockRunsItsClosure) {
    const Block<int(int, int)> add = Block<int(int, int)>::Closure([](int a, int b) { return a + b; });
    EXPECT_EQ(add(3, 4), 7);
}

TEST(BlockTest, CopiesShareOneClosure) {
    int calls = 0;
    const Block<int()> first = Block<int()>::Closure([&calls] { return ++calls; });
    const Block<int()> second = first;
    EXPECT_EQ(first(), 1);
    EXPECT_EQ(second(), 2);
}

TEST(BlockTest, AnEmptyClosureIsAnEmptyBlockAndTheOtherWayRound) {
    EXPECT_FALSE(Block<void()>());
    EXPECT_FALSE(Block<void()>(nullptr));
    EXPECT_FALSE(Block<void()>(Block<void()>::Closure()));
    EXPECT_FALSE(Block<void()>().closure());
    EXPECT_TRUE(Block<void()>([] {}));
    EXPECT_TRUE(Block<void()>([] {}).closure());
}

TEST(BlockTest, AClosureThatABlockGivesKeepsWhatItCaptured) {
    auto captured = std::make_shared<int>(5);
    const std::weak_ptr<int> observed = captured;
    std::function<int()> closure;
    {
        const Block<int()> block = Block<int()>::Closure([captured] { return *captured; });
        captured.reset();
        closure = block.closure();
    }
    EXPECT_EQ(closure(), 5);
    closure = nullptr;
    EXPECT_TRUE(observed.expired());
}

TEST(BlockTest, ABlockMadeOfItsOwnClosureSharesItsState) {
    const Block<int()> counting = Block<int()>::Closure([count = 0]() mutable { return ++count; });
    const Block<int()> again = counting.closure();
    const std::function<int()> closure = again.closure();
    EXPECT_EQ(counting(), 1);
    EXPECT_EQ(again(), 2);
    EXPECT_EQ(closure(), 3);
    EXPECT_EQ(std::function(closure)(), 4);
}

TEST(BlockTest, GoingBackAndForthAddsNoLayers) {
    const auto held = std::make_shared<int>();
    Block<void()> block = Block<void()>::Closure([held] {});
    for (int round = 0; round < 100'000; ++round) {
        block = Block<void()>(block.closure());
    }
    block();
    EXPECT_EQ(held.use_count(), 2);
}

TEST(BlockTest, ArgumentsAreHandedOnAsTheyAre) {
    const Block<void(std::string&, std::unique_ptr<int>)> block =
        Block<void(std::string&, std::unique_ptr<int>)>::Closure(
            [](std::string& text, std::unique_ptr<int> number) { text += std::to_string(*number); });
    std::string text = "n";
    block(text, std::make_unique<int>(3));
    block.closure()(text, std::make_unique<int>(4));
    EXPECT_EQ(text, "n34");
}

} // namespace
