// SPDX-License-Identifier: BSD-3-Clause
// Tests of the sole owner.
#include <ZyUniquePtr.h>

#include <ThrowsMessage.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

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
};
} // namespace

static_assert(sizeof(ZyUniquePtr<int>) == 2 * sizeof(void *), "a table pointer and the object");
static_assert(std::has_virtual_destructor_v<ZyUniquePtr<int>>);
static_assert(!std::is_copy_constructible_v<ZyUniquePtr<int>> &&
              !std::is_copy_assignable_v<ZyUniquePtr<int>>);
static_assert(std::is_nothrow_move_constructible_v<ZyUniquePtr<int>> &&
              std::is_nothrow_move_assignable_v<ZyUniquePtr<int>>);
static_assert(std::is_convertible_v<ZyUniquePtr<Derived> &&, ZyUniquePtr<Counted>>);
static_assert(!std::is_convertible_v<ZyUniquePtr<Counted> &&, ZyUniquePtr<Derived>>);
static_assert(!std::is_convertible_v<int *, ZyUniquePtr<int>>, "ownership is not taken silently");

TEST(ZyUniquePtr, EmptyOnesHoldNothing)
{
    ZyUniquePtr<int> const none;
    ZyUniquePtr<int> const null(nullptr);
    EXPECT_EQ(none.get(), nullptr);
    EXPECT_FALSE(none);
    EXPECT_TRUE(none == nullptr);
    EXPECT_TRUE(nullptr == null);
    EXPECT_FALSE(none != nullptr);
    EXPECT_TRUE(none == null);
}

TEST(ZyUniquePtr, NullDereferenceThrows)
{
    ZyUniquePtr<Counted> const none;
    EXPECT_ZY_THROW(*none, ZyNullPointerException, "ZyUniquePtr dereferencing nullptr");
    EXPECT_ZY_THROW(none->value, ZyNullPointerException, "ZyUniquePtr dereferencing nullptr");
}

TEST(ZyUniquePtr, OwnsItsObject)
{
    int living = 0;
    {
        ZyUniquePtr<Counted> const owner(new Counted(living));
        EXPECT_EQ(living, 1);
        EXPECT_TRUE(owner);
        EXPECT_EQ(owner->value, 7);
        (*owner).value = 8;
        EXPECT_EQ(owner.get()->value, 8);
    }
    EXPECT_EQ(living, 0);
}

TEST(ZyUniquePtr, MovingHandsTheObjectOver)
{
    int living = 0;
    ZyUniquePtr<Counted> first(new Counted(living));
    Counted * const object = first.get();
    ZyUniquePtr<Counted> second(std::move(first));
    EXPECT_EQ(first.get(), nullptr);
    EXPECT_EQ(second.get(), object);
    first = std::move(second);
    EXPECT_EQ(first.get(), object);
    EXPECT_EQ(second.get(), nullptr);
    EXPECT_EQ(living, 1);
    EXPECT_ZY_THROW(*second, ZyNullPointerException, "ZyUniquePtr dereferencing nullptr");
}

TEST(ZyUniquePtr, MoveAssignmentDeletesWhatWasOwned)
{
    int living = 0;
    ZyUniquePtr<Counted> owner(new Counted(living));
    owner = ZyUniquePtr<Counted>(new Counted(living));
    EXPECT_EQ(living, 1);
    owner = nullptr;
    EXPECT_EQ(living, 0);
}

TEST(ZyUniquePtr, SurvivesMoveToItself)
{
    int living = 0;
    ZyUniquePtr<Counted> owner(new Counted(living));
    ZyUniquePtr<Counted> & same = owner;
    owner = std::move(same);
    EXPECT_EQ(living, 1);
    EXPECT_TRUE(owner);
}

TEST(ZyUniquePtr, TakesADerivedObject)
{
    int living = 0;
    ZyUniquePtr<Derived> derived(new Derived(living));
    ZyUniquePtr<Counted> base(std::move(derived));
    EXPECT_FALSE(derived);
    EXPECT_TRUE(base);
    base = ZyUniquePtr<Derived>(new Derived(living));
    EXPECT_EQ(living, 1);
    base.reset();
    EXPECT_EQ(living, 0);
}

TEST(ZyUniquePtr, ReleaseGivesTheObjectAway)
{
    int living = 0;
    ZyUniquePtr<Counted> owner(new Counted(living));
    Counted * const object = owner.release();
    EXPECT_FALSE(owner);
    EXPECT_EQ(living, 1);
    delete object;
    EXPECT_EQ(ZyUniquePtr<int>().release(), nullptr);
}

TEST(ZyUniquePtr, ResetReplacesTheObject)
{
    int living = 0;
    ZyUniquePtr<Counted> owner(new Counted(living));
    owner.reset(new Counted(living));
    EXPECT_EQ(living, 1);
    owner.reset();
    EXPECT_EQ(living, 0);
    EXPECT_FALSE(owner);
}

TEST(ZyUniquePtr, SwapExchangesTheObjects)
{
    ZyUniquePtr<int> first(new int(1));
    ZyUniquePtr<int> second(new int(2));
    first.swap(second);
    EXPECT_EQ(*first, 2);
    swap(first, second);
    EXPECT_EQ(*first, 1);
    EXPECT_EQ(*second, 2);
}

TEST(ZyUniquePtr, ComparesAddresses)
{
    ZyUniquePtr<int> const first(new int(1));
    ZyUniquePtr<int> const second(new int(1));
    EXPECT_FALSE(first == second);
    EXPECT_TRUE(first != second);
    EXPECT_TRUE(first == first);
    EXPECT_NE(first < second, second < first);
    EXPECT_EQ(first<second, second> first);
    EXPECT_EQ(first <= second, !(second < first));
    EXPECT_TRUE(first >= first);
    EXPECT_TRUE(first != nullptr);
    EXPECT_TRUE(nullptr != first);
}
