// Block literals: called, copied, disposed, with the flags of the platform's block ABI.
#include "platform/block.hpp"

#include <gtest/gtest.h>

#include <memory>

#include "tests/platform/animal.hpp"

namespace platform::tests {
namespace {

TEST(Block, PassesArgumentsAndResult) {
    AutoreleasePool pool;
    registerAnimals();
    auto animal = create<Animal>();
    int met = 0;
    auto isSeven = block<bool(int)>([&met](int value) {
        met = value;
        return value == 7;
    });
    EXPECT_TRUE((animal.send<"runBlock:", bool>(BlockRef<bool(int)>(isSeven))));
    EXPECT_EQ(met, 7);
}

TEST(Block, AnEmptyOneDoesNothing) {
    BlockRef<int(int)> none;
    EXPECT_FALSE(none);
    EXPECT_EQ(none(5), 0);
    KeptBlock<void()> kept{BlockRef<void()>()};
    EXPECT_FALSE(kept);
    kept();
}

TEST(Block, ACopyOutlivesTheLiteralAndIsDisposedOnce) {
    auto shared = std::make_shared<int>(5);
    {
        KeptBlock<int()> kept;
        {
            auto literal = block<int()>([shared] { return *shared; });
            EXPECT_EQ(shared.use_count(), 2);
            kept = KeptBlock<int()>(BlockRef<int()>(literal));
            EXPECT_EQ(shared.use_count(), 3);
        }
        EXPECT_EQ(shared.use_count(), 2);
        EXPECT_EQ(kept(), 5);
        KeptBlock<int()> second = kept;  // the heap block is counted, not copied again
        EXPECT_EQ(shared.use_count(), 2);
    }
    EXPECT_EQ(shared.use_count(), 1);
}

TEST(Block, CapturedObjectsAreRetainedByTheCopy) {
    AutoreleasePool pool;
    registerAnimals();
    auto animal = create<Animal>();
    auto count = [&] { return animal.send<"retainCount", unsigned long>(); };
    const unsigned long before = count();
    {
        auto literal =
            block([owner = retained(Object(animal.get()))] { owner.send<"depth", long>(); });
        KeptBlock<void()> kept{BlockRef<void()>(literal)};
        EXPECT_EQ(count(), before + 2);
    }
    EXPECT_EQ(count(), before);
}

TEST(Block, FlagsSayWhetherThereAreHelpers) {
    int number = 3;
    auto plain = block([number] { (void)number; });
    auto owning = block([text = std::make_shared<int>(1)] { (void)text; });
    auto flags = [](BlockRef<void()> b) { return static_cast<BlockHeader*>(b.get())->flags; };
    EXPECT_EQ(flags(plain), 0);
    EXPECT_EQ(flags(owning), 1 << 25);
}

}  // namespace
}  // namespace platform::tests
