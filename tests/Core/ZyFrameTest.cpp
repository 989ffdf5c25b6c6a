// SPDX-License-Identifier: BSD-3-Clause
// Tests of the frame: hidden state, type-erased values, pairs, points and reference holders.
#include <ZyObject.h>
#include <ZyPair.h>
#include <ZyPoint.h>
#include <ZyPrivateObject.h>
#include <ZyRef.h>
#include <ZyString.h>
#include <ZyTypes.h>
#include <ZyVector.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace
{
struct State : ZyPrivateObject
{
    explicit State(int & count) : living(count) { ++living; }
    State(State const & other) : ZyPrivateObject(other), living(other.living) { ++living; }
    ~State() override { --living; }

    int & living;
};
} // namespace

static_assert(sizeof(ZyPrivateObject) == sizeof(void *) && std::has_virtual_destructor_v<ZyPrivateObject>);
static_assert(sizeof(ZyPrivatePtr<ZyPrivateObject>) == sizeof(void *), "the deleter takes no room");
static_assert(std::is_empty_v<ZyPrivateObject::Deleter>);
static_assert(sizeof(ZyObject) == sizeof(void *) && std::has_virtual_destructor_v<ZyObject>);
static_assert(!std::is_polymorphic_v<ZyPair<ZyString, ZyString>> &&
              sizeof(ZyPair<ZyString, ZyString>) == 2 * sizeof(ZyString));
static_assert(sizeof(ZyString) == 2 * sizeof(void *), "a table pointer and the state");
static_assert(!std::is_polymorphic_v<ZyPoint> && sizeof(ZyPoint) == 2 * sizeof(int));
static_assert(sizeof(ZyPointD) == 2 * sizeof(double));
static_assert(std::is_same_v<decltype(ZyPoint::x), int> && std::is_same_v<decltype(ZyPointD::y), double>);
static_assert(sizeof(ZyRef<int>) == 2 * sizeof(void *) && std::has_virtual_destructor_v<ZyRef<int>>);
static_assert(sizeof(ZyCRef<int>) == 2 * sizeof(void *) && std::has_virtual_destructor_v<ZyCRef<int>>);
static_assert(!std::is_constructible_v<ZyRef<int>, int> && !std::is_constructible_v<ZyCRef<int>, int>,
              "no reference to a temporary");
static_assert(sizeof(__int64) == 8 && static_cast<unsigned __int64>(-1) > 0);

TEST(ZyPrivateObject, DeleterLeavesNullAlone)
{
    ZyPrivateObject::Deleter deleter;
    deleter(nullptr);
    ZyPrivatePtr<State> const none;
    EXPECT_EQ(none.get(), nullptr);
}

TEST(ZyPrivateObject, DeleterDestroysThroughTheBase)
{
    int living = 0;
    ZyPrivateObject * const object = new State(living);
    EXPECT_EQ(living, 1);
    ZyPrivateObject::Deleter()(object);
    EXPECT_EQ(living, 0);
}

TEST(ZyPrivateObject, OwningPointerMoves)
{
    int living = 0;
    ZyPrivatePtr<State> first(new State(living));
    ZyPrivatePtr<State> second(std::move(first));
    EXPECT_FALSE(first);
    first = std::move(second);
    EXPECT_EQ(living, 1);
    first.reset();
    EXPECT_EQ(living, 0);
}

TEST(ZyPrivateObject, DeletersAssign)
{
    ZyPrivateObject::Deleter first;
    ZyPrivateObject::Deleter second;
    EXPECT_EQ(&(first = second), &first);
    EXPECT_EQ(&(first = std::move(second)), &first);
}

TEST(ZyPrivateObject, CopiesCopyNothing)
{
    int one = 0;
    State const first(one);
    State const second(first);
    EXPECT_EQ(one, 2);
    ZyPrivateObject plain;
    ZyPrivateObject const other(plain);
    EXPECT_EQ(&(plain = other), &plain);
}

TEST(ZyPair, HoldsTwoValues)
{
    ZyPair<ZyString, int> pair("a", 2);
    EXPECT_TRUE(pair.first == "a");
    EXPECT_EQ(pair.second, 2);
    pair.second = 3;
    EXPECT_EQ(pair.second, 3);
}

TEST(ZyPair, DefaultsItsMembers)
{
    ZyPair<ZyString, int> const pair;
    EXPECT_TRUE(pair.first.isEmpty());
    EXPECT_EQ(pair.second, 0);
}

TEST(ZyPair, EqualityIsThatOfBothMembers)
{
    using Pair = ZyPair<ZyString, ZyString>;
    EXPECT_TRUE(Pair("a", "B") == Pair("A", "b"));
    EXPECT_FALSE(Pair("a", "b") == Pair("a", "c"));
    EXPECT_FALSE(Pair("a", "b") == Pair("c", "b"));
    EXPECT_TRUE(Pair("a", "b") != Pair("a", "c"));
    EXPECT_FALSE(Pair("a", "b") != Pair("A", "B"));
}

TEST(ZyPair, OrderIsByTheFirstThenByTheSecond)
{
    using Pair = ZyPair<ZyString, ZyString>;
    EXPECT_TRUE(Pair("a", "z") < Pair("b", "a"));
    EXPECT_FALSE(Pair("b", "a") < Pair("a", "z"));
    EXPECT_TRUE(Pair("a", "a") < Pair("A", "b"));
    EXPECT_FALSE(Pair("a", "b") < Pair("A", "B"));
}

TEST(ZyPair, CopiesAndMoves)
{
    ZyPair<ZyString, ZyString> first("a", "b");
    ZyPair<ZyString, ZyString> const second(first);
    ZyPair<ZyString, ZyString> const third(std::move(first));
    EXPECT_TRUE(second == third);
    EXPECT_TRUE(first.first.isEmpty());
}

TEST(ZyPoint, HoldsTwoCoordinates)
{
    constexpr ZyPoint origin;
    static_assert(origin.x == 0 && origin.y == 0);
    ZyPointTemplate<unsigned int> cell(3u, 4u);
    cell.x = 5;
    EXPECT_TRUE(cell == (ZyPointTemplate<unsigned int>(5u, 4u)));
    EXPECT_TRUE(cell != (ZyPointTemplate<unsigned int>(5u, 5u)));
    EXPECT_TRUE(ZyPointD(0.5, 1.5) == ZyPointD(0.5, 1.5));
    EXPECT_FALSE(ZyPoint(1, 2) == ZyPoint(2, 1));
}

TEST(ZyRef, RefersToItsObject)
{
    ZyString text("abc");
    ZyRef<ZyString> const reference(text);
    EXPECT_EQ(&reference.get(), &text);
    EXPECT_EQ(&*reference, &text);
    EXPECT_EQ(reference->size(), 3u);
    *reference = "changed";
    EXPECT_TRUE(text == "changed");
    ZyString & plain = reference;
    EXPECT_EQ(&plain, &text);
}

TEST(ZyRef, CopiesReferToTheSameObject)
{
    int first = 1;
    int second = 2;
    ZyRef<int> reference(first);
    ZyRef<int> const copy(reference);
    reference = ZyRef<int>(second);
    EXPECT_EQ(&copy.get(), &first);
    EXPECT_EQ(&reference.get(), &second);
    EXPECT_EQ(first, 1);
}

TEST(ZyRef, EqualityIsThatOfTheReferents)
{
    ZyString first("abc");
    ZyString second("ABC");
    ZyString third("x");
    EXPECT_TRUE(ZyRef<ZyString>(first) == ZyRef<ZyString>(second));
    EXPECT_TRUE(ZyRef<ZyString>(first) != ZyRef<ZyString>(third));
    EXPECT_TRUE(ZyCRef<ZyString>(first) == ZyCRef<ZyString>(second));
    EXPECT_TRUE(ZyCRef<ZyString>(first) != ZyCRef<ZyString>(third));
}

TEST(ZyRef, IsAnElementOfContainers)
{
    int one = 1;
    int two = 2;
    ZyVector<ZyRef<int>> references;
    references.add(ZyRef<int>(one));
    references.add(two);
    *references[1] = 5;
    EXPECT_EQ(two, 5);
    EXPECT_TRUE(references.contains(ZyRef<int>(one)));
}

TEST(ZyCRef, RefersToItsObject)
{
    ZyString const text("abc");
    ZyCRef<ZyString> const reference(text);
    EXPECT_EQ(&reference.get(), &text);
    EXPECT_EQ(&*reference, &text);
    EXPECT_EQ(reference->size(), 3u);
    ZyString const & plain = reference;
    EXPECT_EQ(&plain, &text);
}

TEST(ZyCRef, IsMadeFromARef)
{
    int number = 1;
    ZyRef<int> const writable(number);
    ZyCRef<int> const readable(writable);
    EXPECT_EQ(&readable.get(), &number);
    static_assert(std::is_same_v<decltype(readable.get()), int const &>);
}
