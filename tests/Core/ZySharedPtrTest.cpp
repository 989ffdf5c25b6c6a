// SPDX-License-Identifier: BSD-3-Clause
// Tests of shared ownership: the shared and the weak pointer, and the casts.
#include <ZyObject.h>
#include <ZySharedPtr.h>

#include <ThrowsMessage.h>

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace
{
/** Counts the living ones. */
struct Counted
{
    explicit Counted(int & count) : living(count) { ++living; }
    Counted(Counted const &) = delete;
    Counted & operator=(Counted const &) = delete;
    virtual ~Counted() { --living; }

    int & living;
    int value = 7;
};
struct Derived : Counted
{
    using Counted::Counted;
    int more = 9;
};
struct Other : Counted
{
    using Counted::Counted;
};
} // namespace

static_assert(sizeof(ZySharedPtr<int>) == 2 * sizeof(void *), "two words and no table pointer");
static_assert(!std::is_polymorphic_v<ZySharedPtr<int>>);
static_assert(sizeof(ZyWeakPtr<int>) == 3 * sizeof(void *), "a table pointer and two words");
static_assert(std::has_virtual_destructor_v<ZyWeakPtr<int>>);
static_assert(std::is_nothrow_copy_constructible_v<ZySharedPtr<int>> &&
              std::is_nothrow_move_constructible_v<ZySharedPtr<int>>);
static_assert(std::is_convertible_v<ZySharedPtr<Derived>, ZySharedPtr<Counted>>);
static_assert(!std::is_convertible_v<ZySharedPtr<Counted>, ZySharedPtr<Derived>>);
static_assert(!std::is_convertible_v<int *, ZySharedPtr<int>>, "ownership is not taken silently");

TEST(ZySharedPtr, EmptyOnesHoldNothing)
{
    ZySharedPtr<int> const none;
    ZySharedPtr<int> const null(nullptr);
    EXPECT_EQ(none.get(), nullptr);
    EXPECT_FALSE(none);
    EXPECT_EQ(none.use_count(), 0);
    EXPECT_TRUE(none == nullptr);
    EXPECT_TRUE(nullptr == null);
    EXPECT_FALSE(none != nullptr);
    EXPECT_FALSE(nullptr != none);
    EXPECT_TRUE(none == null);
}

TEST(ZySharedPtr, NullDereferenceThrowsWithoutWords)
{
    ZySharedPtr<Counted> const none;
    EXPECT_ZY_THROW(*none, ZyNullPointerException, "");
    EXPECT_ZY_THROW(none->value, ZyNullPointerException, "");
}

TEST(ZySharedPtr, LastOwnerDestroysTheObject)
{
    int living = 0;
    ZySharedPtr<Counted> first(new Counted(living));
    {
        ZySharedPtr<Counted> const second(first);
        EXPECT_EQ(first.use_count(), 2);
        EXPECT_EQ(second->value, 7);
        (*second).value = 8;
    }
    EXPECT_EQ(first.use_count(), 1);
    EXPECT_EQ(first->value, 8);
    first.reset();
    EXPECT_EQ(living, 0);
    EXPECT_FALSE(first);
}

TEST(ZySharedPtr, MovingHandsTheObjectOver)
{
    int living = 0;
    ZySharedPtr<Counted> first(new Counted(living));
    ZySharedPtr<Counted> second(std::move(first));
    EXPECT_FALSE(first);
    EXPECT_EQ(second.use_count(), 1);
    first = std::move(second);
    EXPECT_TRUE(first);
    EXPECT_FALSE(second);
    EXPECT_EQ(living, 1);
}

TEST(ZySharedPtr, AssignsToItself)
{
    int living = 0;
    ZySharedPtr<Counted> owner(new Counted(living));
    ZySharedPtr<Counted> & same = owner;
    owner = same;
    EXPECT_EQ(owner.use_count(), 1);
    owner = std::move(same);
    EXPECT_TRUE(owner);
    EXPECT_EQ(living, 1);
}

TEST(ZySharedPtr, ConvertsToTheBase)
{
    int living = 0;
    ZySharedPtr<Derived> derived(new Derived(living));
    ZySharedPtr<Counted> base(derived);
    EXPECT_EQ(base.use_count(), 2);
    base = derived;
    EXPECT_EQ(base.use_count(), 2);
    ZySharedPtr<Counted> const moved(std::move(derived));
    EXPECT_FALSE(derived);
    EXPECT_EQ(moved.use_count(), 2);
    EXPECT_TRUE(base == moved);
}

TEST(ZySharedPtr, TakesAUniqueOwnersObject)
{
    int living = 0;
    ZyUniquePtr<Derived> unique(new Derived(living));
    ZySharedPtr<Counted> shared(std::move(unique));
    EXPECT_FALSE(unique);
    EXPECT_EQ(shared.use_count(), 1);
    shared = ZyUniquePtr<Counted>(new Counted(living));
    EXPECT_EQ(living, 1);
    shared = nullptr;
    EXPECT_EQ(living, 0);
}

TEST(ZySharedPtr, OfAnEmptyUniqueOwnerIsEmpty)
{
    ZySharedPtr<Counted> const shared{ZyUniquePtr<Derived>()};
    EXPECT_FALSE(shared);
    EXPECT_EQ(shared.use_count(), 0);
}

TEST(ZySharedPtr, ResetReplacesTheObject)
{
    int living = 0;
    ZySharedPtr<Counted> owner(new Counted(living));
    owner.reset(new Derived(living));
    EXPECT_EQ(living, 1);
    EXPECT_TRUE(ZyDynamicPointerCast<Derived>(owner));
}

TEST(ZySharedPtr, SwapExchangesTheObjects)
{
    ZySharedPtr<int> first(new int(1));
    ZySharedPtr<int> second(new int(2));
    first.swap(second);
    EXPECT_EQ(*first, 2);
    swap(first, second);
    EXPECT_EQ(*first, 1);
}

TEST(ZySharedPtr, ComparesAddresses)
{
    ZySharedPtr<int> const first(new int(1));
    ZySharedPtr<int> const second(new int(1));
    ZySharedPtr<int> const third(first);
    EXPECT_FALSE(first == second);
    EXPECT_TRUE(first != second);
    EXPECT_TRUE(first == third);
    EXPECT_NE(first < second, second < first);
    EXPECT_EQ(first<second, second> first);
    EXPECT_TRUE(first <= third);
    EXPECT_TRUE(first >= third);
    EXPECT_TRUE(first != nullptr);
    EXPECT_TRUE(nullptr != first);
}

TEST(ZySharedPtr, HoldsTypeErasedValues)
{
    struct Value : ZyObject
    {
        explicit Value(int n) : number(n) {}
        int number;
    };
    ZySharedPtr<ZyObject> const erased(new Value(5));
    EXPECT_EQ(ZyDynamicPointerCast<Value>(erased)->number, 5);
}

TEST(ZySharedPtr, CanHoldConstObjects)
{
    ZySharedPtr<int> const writable(new int(1));
    ZySharedPtr<int const> const readable(writable);
    *writable = 2;
    EXPECT_EQ(*readable, 2);
}

TEST(ZySharedPtr, PartSharesTheLifeOfTheWhole)
{
    int living = 0;
    ZySharedPtr<int> part;
    {
        ZySharedPtr<Counted> const whole(new Counted(living));
        part = ZySharedPtr<int>(whole, &whole->value);
    }
    EXPECT_EQ(living, 1);
    EXPECT_EQ(*part, 7);
    part.reset();
    EXPECT_EQ(living, 0);
}

TEST(ZySharedPtr, StaticCastShares)
{
    int living = 0;
    ZySharedPtr<Counted> const base(new Derived(living));
    ZySharedPtr<Derived> const derived = ZyStaticPointerCast<Derived>(base);
    EXPECT_EQ(derived->more, 9);
    EXPECT_EQ(base.use_count(), 2);
    EXPECT_FALSE(ZyStaticPointerCast<Derived>(ZySharedPtr<Counted>()));
}

TEST(ZySharedPtr, DynamicCastChecks)
{
    int living = 0;
    ZySharedPtr<Counted> const base(new Derived(living));
    EXPECT_EQ(ZyDynamicPointerCast<Derived>(base)->more, 9);
    EXPECT_FALSE(ZyDynamicPointerCast<Other>(base));
    EXPECT_EQ(ZyDynamicPointerCast<Other>(base).use_count(), 0);
    EXPECT_FALSE(ZyDynamicPointerCast<Derived>(ZySharedPtr<Counted>()));
    EXPECT_EQ(base.use_count(), 1);
}

TEST(ZySharedPtr, CountsAcrossThreads)
{
    int living = 0;
    ZySharedPtr<Counted> owner(new Counted(living));
    ZyWeakPtr<Counted> const weak(owner);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([owner, weak] {
            for (int turn = 0; turn < 1000; ++turn) {
                ZySharedPtr<Counted> const copy(owner);
                ZyWeakPtr<Counted> const handle(weak);
                static_cast<void>(handle.lock());
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_EQ(owner.use_count(), 1);
    owner.reset();
    EXPECT_EQ(living, 0);
}

TEST(ZyWeakPtr, EmptyOneIsExpired)
{
    ZyWeakPtr<int> const none;
    EXPECT_TRUE(none.expired());
    EXPECT_FALSE(none.lock());
    EXPECT_EQ(none.use_count(), 0);
    EXPECT_TRUE(ZyWeakPtr<int>(nullptr).expired());
}

TEST(ZyWeakPtr, KeepsNothingAlive)
{
    int living = 0;
    ZySharedPtr<Counted> owner(new Counted(living));
    ZyWeakPtr<Counted> const weak(owner);
    EXPECT_EQ(owner.use_count(), 1);
    EXPECT_FALSE(weak.expired());
    owner.reset();
    EXPECT_EQ(living, 0);
    EXPECT_TRUE(weak.expired());
    EXPECT_TRUE(weak.lock() == nullptr);
    EXPECT_ZY_THROW(*weak.lock(), ZyNullPointerException, "");
}

TEST(ZyWeakPtr, LockShares)
{
    int living = 0;
    ZySharedPtr<Counted> owner(new Counted(living));
    ZyWeakPtr<Counted> const weak(owner);
    ZySharedPtr<Counted> const locked = weak.lock();
    EXPECT_EQ(owner.use_count(), 2);
    owner.reset();
    EXPECT_EQ(living, 1);
    EXPECT_EQ(locked->value, 7);
}

TEST(ZyWeakPtr, CopiesMovesAndResets)
{
    ZySharedPtr<int> const owner(new int(1));
    ZyWeakPtr<int> first(owner);
    ZyWeakPtr<int> second(first);
    EXPECT_FALSE(second.expired());
    ZyWeakPtr<int> third(std::move(first));
    EXPECT_TRUE(first.expired());
    EXPECT_FALSE(third.expired());
    first = third;
    EXPECT_FALSE(first.expired());
    second = std::move(third);
    EXPECT_TRUE(third.expired());
    second.reset();
    EXPECT_TRUE(second.expired());
    first.swap(second);
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(*second.lock(), 1);
}

TEST(ZyWeakPtr, WatchesThroughTheBase)
{
    int living = 0;
    ZySharedPtr<Derived> const owner(new Derived(living));
    ZyWeakPtr<Derived> const derived(owner);
    ZyWeakPtr<Counted> const base(derived);
    EXPECT_EQ(base.lock().get(), owner.get());
    EXPECT_EQ(ZyWeakPtr<Counted>(owner).use_count(), 1);
}

TEST(ZyWeakPtr, EqualityIsThatOfTheWatchedObject)
{
    ZySharedPtr<int> owner(new int(1));
    ZySharedPtr<int> const other(new int(1));
    ZyWeakPtr<int> const first(owner);
    ZyWeakPtr<int> const second(owner);
    EXPECT_TRUE(first == second);
    EXPECT_FALSE(first == ZyWeakPtr<int>(other));
    EXPECT_TRUE(first != ZyWeakPtr<int>());
    owner.reset();
    EXPECT_TRUE(first == second);
    EXPECT_FALSE(first == ZyWeakPtr<int>());
    EXPECT_TRUE(ZyWeakPtr<int>() == ZyWeakPtr<int>());
}
