// SPDX-License-Identifier: BSD-3-Clause
// Tests of what all containers share, and of what each adds.
#include <ZyDeque.h>
#include <ZyList.h>
#include <ZyPoint.h>
#include <ZyRef.h>
#include <ZySharedPtr.h>
#include <ZyString.h>
#include <ZyStringView.h>
#include <ZyVector.h>

#include <ThrowsMessage.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <list>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

static_assert(std::is_abstract_v<ZyContainer<int>> && !std::has_virtual_destructor_v<ZyContainer<int>>);
static_assert(!std::is_destructible_v<ZyContainer<int>>, "nobody deletes through the interface");
static_assert(sizeof(ZyContainer<int>) == sizeof(void *), "no data");
static_assert(sizeof(ZyDeque<int>) == sizeof(void *) + sizeof(std::deque<int>));
static_assert(sizeof(ZyVector<int>) == sizeof(void *) + sizeof(std::vector<int>));
static_assert(sizeof(ZyList<int>) == sizeof(void *) + sizeof(std::list<int>));
static_assert(std::is_base_of_v<ZyContainer<int>, ZyDeque<int>> &&
              std::is_base_of_v<ZyContainer<int>, ZyVector<int>> &&
              std::is_base_of_v<ZyContainer<int>, ZyList<int>>);
static_assert(std::has_virtual_destructor_v<ZyDeque<int>> && std::has_virtual_destructor_v<ZyVector<int>> &&
              std::has_virtual_destructor_v<ZyList<int>>);

namespace
{
/** The numbers in order, walked through the interface. */
std::vector<int> items(ZyContainer<int> const & container)
{
    std::vector<int> result;
    for (int const item : container) {
        result.push_back(item);
    }
    return result;
}

template <class C>
class ZyContainerOfInt : public testing::Test
{};
using Kinds = testing::Types<ZyDeque<int>, ZyVector<int>, ZyList<int>>;
TYPED_TEST_SUITE(ZyContainerOfInt, Kinds, );

template <class C>
class ZyContainerOfText : public testing::Test
{};
using TextKinds = testing::Types<ZyDeque<ZyString>, ZyVector<ZyString>, ZyList<ZyString>>;
TYPED_TEST_SUITE(ZyContainerOfText, TextKinds, );

template <class C>
class ZyIndexed : public testing::Test
{};
using IndexedKinds = testing::Types<ZyDeque<int>, ZyVector<int>>;
TYPED_TEST_SUITE(ZyIndexed, IndexedKinds, );
} // namespace

TYPED_TEST(ZyContainerOfInt, IsEmptyAtFirst)
{
    TypeParam const container;
    EXPECT_EQ(container.size(), 0u);
    EXPECT_TRUE(container.isEmpty());
    EXPECT_TRUE(container.begin() == container.end());
    EXPECT_FALSE(container.contains(1));
}

TYPED_TEST(ZyContainerOfInt, AddAppends)
{
    TypeParam container;
    int const two = 2;
    container.add(1);
    container.add(two);
    container.add(1);
    EXPECT_EQ(items(container), (std::vector<int>{1, 2, 1}));
    EXPECT_EQ(container.size(), 3u);
    EXPECT_FALSE(container.isEmpty());
}

TYPED_TEST(ZyContainerOfInt, WorksThroughTheInterface)
{
    TypeParam container;
    ZyContainer<int> & interface = container;
    interface.add(5);
    EXPECT_TRUE(interface.addUnique(6));
    EXPECT_FALSE(interface.addUnique(5));
    EXPECT_EQ(interface.find(6), 6);
    interface.find(6) = 7;
    EXPECT_EQ(interface.find([](int const & item) { return item > 6; }), 7);
    interface.remove(5);
    EXPECT_EQ(items(interface), (std::vector<int>{7}));
    EXPECT_EQ(interface.size(), 1u);
}

TYPED_TEST(ZyContainerOfInt, AddUniqueKeepsEqualItemsOut)
{
    TypeParam container{1, 2};
    EXPECT_FALSE(container.addUnique(2));
    EXPECT_EQ(items(container), (std::vector<int>{1, 2}));
    EXPECT_TRUE(container.addUnique(3));
    EXPECT_EQ(items(container), (std::vector<int>{1, 2, 3}));
}

TYPED_TEST(ZyContainerOfInt, ContainsLooksAtEveryItem)
{
    TypeParam const container{1, 2, 3};
    EXPECT_TRUE(container.contains(1));
    EXPECT_TRUE(container.contains(3));
    EXPECT_FALSE(container.contains(4));
}

TYPED_TEST(ZyContainerOfInt, FindGivesTheFirstEqualItem)
{
    TypeParam container{1, 2, 2};
    container.find(2) = 9;
    EXPECT_EQ(items(container), (std::vector<int>{1, 9, 2}));
    TypeParam const & constant = container;
    EXPECT_EQ(&constant.find(2), &container.find(2));
}

TYPED_TEST(ZyContainerOfInt, FindThrowsWhenThereIsNone)
{
    TypeParam empty;
    TypeParam const container{1};
    EXPECT_ZY_THROW(empty.find(1), ZyNotFoundException, "Item not found");
    EXPECT_ZY_THROW(container.find(2), ZyNotFoundException, "Item not found");
}

TYPED_TEST(ZyContainerOfInt, FindByPredicateGivesTheFirstThatPasses)
{
    TypeParam container{1, 2, 4};
    container.find([](int const & item) { return item % 2 == 0; }) = 8;
    EXPECT_EQ(items(container), (std::vector<int>{1, 8, 4}));
    TypeParam const & constant = container;
    EXPECT_EQ(constant.find([](int const & item) { return item > 3; }), 8);
}

TYPED_TEST(ZyContainerOfInt, FindByPredicateStopsAtTheFirst)
{
    TypeParam const container{1, 2, 3};
    int calls = 0;
    container.find([&](int const &) { return ++calls == 2; });
    EXPECT_EQ(calls, 2);
}

TYPED_TEST(ZyContainerOfInt, FindByPredicateThrowsWhenNonePasses)
{
    TypeParam container{1};
    TypeParam const & constant = container;
    auto const never = [](int const &) { return false; };
    EXPECT_ZY_THROW(container.find(never), ZyNotFoundException, "Item not found");
    EXPECT_ZY_THROW(constant.find(never), ZyNotFoundException, "Item not found");
}

TYPED_TEST(ZyContainerOfInt, EmptyPredicateFailsAtTheFirstItem)
{
    std::function<bool(int const &)> const none;
    TypeParam empty;
    TypeParam container{1};
    EXPECT_THROW(container.find(none), std::bad_function_call);
    EXPECT_ZY_THROW(empty.find(none), ZyNotFoundException, "Item not found");
}

TYPED_TEST(ZyContainerOfInt, RemoveOfAnAbsentItemIsSilent)
{
    TypeParam container{1, 2};
    container.remove(3);
    EXPECT_EQ(items(container), (std::vector<int>{1, 2}));
    TypeParam empty;
    empty.remove(1);
    EXPECT_EQ(empty.size(), 0u);
}

TYPED_TEST(ZyContainerOfInt, RemoveTakesEveryEqualItem)
{
    TypeParam container{7, 1, 7, 2, 7};
    container.remove(7);
    EXPECT_EQ(items(container), (std::vector<int>{1, 2}));
    TypeParam same{4, 4, 4};
    same.remove(4);
    EXPECT_TRUE(same.isEmpty());
}

TYPED_TEST(ZyContainerOfInt, RemoveTakesAnItemOfTheContainerItself)
{
    TypeParam first{1, 2, 1, 3, 1, 2};
    first.remove(first.find(1));
    EXPECT_EQ(items(first), (std::vector<int>{2, 3, 2}));
    TypeParam second{7, 1, 2, 1, 3, 1, 9};
    second.remove(second.find(1));
    EXPECT_EQ(items(second), (std::vector<int>{7, 2, 3, 9}));
}

TYPED_TEST(ZyContainerOfInt, CopiesAreDeep)
{
    TypeParam first{1, 2};
    TypeParam const second(first);
    first.find(1) = 9;
    EXPECT_EQ(items(second), (std::vector<int>{1, 2}));
    EXPECT_TRUE(first != second);
}

TYPED_TEST(ZyContainerOfInt, AssignmentReplacesTheItems)
{
    TypeParam const source{1, 2};
    TypeParam target{5};
    target = source;
    EXPECT_EQ(items(target), (std::vector<int>{1, 2}));
    TypeParam const & same = target;
    target = same;
    EXPECT_EQ(items(target), (std::vector<int>{1, 2}));
}

TYPED_TEST(ZyContainerOfInt, MovedFromCanBeUsed)
{
    TypeParam source{1, 2};
    TypeParam target(std::move(source));
    EXPECT_EQ(items(target), (std::vector<int>{1, 2}));
    source.clear();
    source.add(3);
    EXPECT_EQ(items(source), (std::vector<int>{3}));
    target = std::move(source);
    EXPECT_EQ(items(target), (std::vector<int>{3}));
}

TYPED_TEST(ZyContainerOfInt, IsMadeFromARange)
{
    std::vector<int> const numbers{3, 1, 2};
    TypeParam const container(numbers.begin(), numbers.end());
    EXPECT_EQ(items(container), numbers);
    TypeParam const copy(container.begin(), container.end());
    EXPECT_TRUE(copy == container);
}

TYPED_TEST(ZyContainerOfInt, AppendJoins)
{
    TypeParam first{1, 2};
    TypeParam const second{3};
    EXPECT_EQ(&first.append(second), &first);
    EXPECT_EQ(items(first), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(&(first += second), &first);
    EXPECT_EQ(items(first), (std::vector<int>{1, 2, 3, 3}));
    first.append(TypeParam());
    EXPECT_EQ(first.size(), 4u);
}

TYPED_TEST(ZyContainerOfInt, AppendTakesItself)
{
    TypeParam container{1, 2};
    container += container;
    EXPECT_EQ(items(container), (std::vector<int>{1, 2, 1, 2}));
}

TYPED_TEST(ZyContainerOfInt, ClearTakesAllItems)
{
    TypeParam container{1, 2};
    container.clear();
    EXPECT_TRUE(container.isEmpty());
    container.clear();
    EXPECT_EQ(container.size(), 0u);
}

TYPED_TEST(ZyContainerOfInt, EqualityIsThatOfTheItems)
{
    EXPECT_TRUE((TypeParam{1, 2}) == (TypeParam{1, 2}));
    EXPECT_FALSE((TypeParam{1, 2}) == (TypeParam{2, 1}));
    EXPECT_TRUE((TypeParam{1, 2}) != (TypeParam{1}));
    EXPECT_TRUE(TypeParam() == TypeParam());
}

TYPED_TEST(ZyContainerOfText, EqualityOfTextIgnoresCase)
{
    TypeParam texts{"Abc"};
    EXPECT_FALSE(texts.addUnique("abc"));
    EXPECT_EQ(texts.size(), 1u);
    EXPECT_TRUE(texts.contains("ABC"));
    EXPECT_STREQ(texts.find(ZyString("aBC")).c_str(), "Abc");
    texts.remove("ABC");
    EXPECT_TRUE(texts.isEmpty());
}

TYPED_TEST(ZyContainerOfText, AddMovesTemporaries)
{
    TypeParam texts;
    ZyString text("a text that is too long for the small buffer");
    texts.add(std::move(text));
    EXPECT_TRUE(text.isEmpty());
    EXPECT_EQ(texts.find([](ZyString const &) { return true; }).size(), 44u);
}

TYPED_TEST(ZyContainerOfText, AddTakesAnItemOfTheContainerItself)
{
    TypeParam texts{"first, and long enough to need a buffer of its own"};
    for (int i = 0; i < 100; ++i) {
        texts.add(texts.find([](ZyString const &) { return true; }));
    }
    EXPECT_EQ(texts.size(), 101u);
    texts.remove("FIRST, AND LONG ENOUGH TO NEED A BUFFER OF ITS OWN");
    EXPECT_TRUE(texts.isEmpty());
}

TYPED_TEST(ZyContainerOfText, RemoveTakesAnItemOfTheContainerItself)
{
    TypeParam texts{"a", "b", "A", "c", "a"};
    texts.remove(texts.find(ZyString("a")));
    EXPECT_TRUE(texts == (TypeParam{"b", "c"}));
}

TYPED_TEST(ZyIndexed, IndexReadsAndWrites)
{
    TypeParam container{1, 2, 3};
    container[0] = 4;
    container.at(1) = 5;
    TypeParam const & constant = container;
    EXPECT_EQ(constant[0], 4);
    EXPECT_EQ(constant.at(1), 5);
    EXPECT_EQ(constant[2u], 3);
}

TYPED_TEST(ZyIndexed, BadIndexTellsTheLastValidOne)
{
    TypeParam container{1, 2, 3};
    TypeParam const & constant = container;
    EXPECT_ZY_THROW(container.at(3), ZyIndexOutOfBoundsException, "Index out of bounds [3,2]");
    EXPECT_ZY_THROW(constant.at(3), ZyIndexOutOfBoundsException, "Index out of bounds [3,2]");
    EXPECT_ZY_THROW(container[4], ZyIndexOutOfBoundsException, "Index out of bounds [4,2]");
    EXPECT_ZY_THROW(constant[0xFFFFFFFFu], ZyIndexOutOfBoundsException, "Index out of bounds [4294967295,2]");
}

TYPED_TEST(ZyIndexed, LastValidIndexOfAnEmptyContainerWraps)
{
    TypeParam empty;
    EXPECT_ZY_THROW(empty.at(0), ZyIndexOutOfBoundsException, "Index out of bounds [0,4294967295]");
}

TEST(ZyVector, IsMadeFromACountAndAValue)
{
    ZyVector<int> const numbers(3, 7);
    EXPECT_EQ(items(numbers), (std::vector<int>{7, 7, 7}));
    ZyVector<double> const reals(2, 1.5);
    EXPECT_EQ(reals[1], 1.5);
    EXPECT_TRUE(ZyVector<ZyString>(0, "x").isEmpty());
}

TEST(ZyVector, ReserveKeepsTheItems)
{
    ZyVector<int> numbers{1, 2};
    numbers.reserve(1000);
    EXPECT_GE(numbers.std_vector().capacity(), 1000u);
    EXPECT_EQ(items(numbers), (std::vector<int>{1, 2}));
}

TEST(ZyVector, LengthFailureOfTheStandardContainerPasses)
{
    struct Huge
    {
        bool operator==(Huge const &) const { return true; }
        char bytes[1ull << 33];
    };
    ZyVector<Huge> items;
    EXPECT_THROW(items.reserve(0xFFFFFFFFu), std::length_error);
}

TEST(ZyContainer, HeldContainersAreReached)
{
    ZyDeque<int> deque{2, 1};
    std::sort(deque.std_deque().begin(), deque.std_deque().end());
    EXPECT_EQ(items(deque), (std::vector<int>{1, 2}));
    ZyVector<int> const vector{1, 2};
    EXPECT_EQ(vector.std_vector(), (std::vector<int>{1, 2}));
    ZyList<int> list{1, 2};
    list.std_list().push_front(0);
    EXPECT_EQ(items(list), (std::vector<int>{0, 1, 2}));
    ZyList<int> const & constant = list;
    EXPECT_EQ(constant.std_list().size(), 3u);
}

TEST(ZyContainer, AnyKindServesAFunctionOfTheInterface)
{
    EXPECT_EQ(items(ZyDeque<int>{1, 2}), items(ZyVector<int>{1, 2}));
    EXPECT_EQ(items(ZyDeque<int>{1, 2}), items(ZyList<int>{1, 2}));
}

TEST(ZyContainer, ComparesSharedPointersByAddress)
{
    ZySharedPtr<int> const first(new int(1));
    ZySharedPtr<int> const second(new int(1));
    ZyDeque<ZySharedPtr<int>> pointers{first};
    EXPECT_TRUE(pointers.contains(first));
    EXPECT_FALSE(pointers.contains(second));
    EXPECT_TRUE(pointers.addUnique(second));
    pointers.remove(pointers[0]);
    EXPECT_EQ(pointers.size(), 1u);
    EXPECT_EQ(first.use_count(), 1);
}

TEST(ZyContainer, HoldsContainersViewsPointsAndWeakPointers)
{
    ZyDeque<ZyDeque<ZyString>> nested;
    nested.add(ZyDeque<ZyString>{"a"});
    EXPECT_TRUE(nested.contains(ZyDeque<ZyString>{"A"}));
    ZyDeque<ZyStringView> views{"abc"};
    EXPECT_TRUE(views.contains("ABC"));
    ZyDeque<ZyPointTemplate<unsigned int>> points;
    points.add({1u, 2u});
    EXPECT_TRUE(points.contains({1u, 2u}));
    ZySharedPtr<int> const owner(new int(1));
    ZyDeque<ZyWeakPtr<int>> handles{owner};
    EXPECT_TRUE(handles.contains(owner));
    handles.remove(owner);
    EXPECT_TRUE(handles.isEmpty());
    ZyDeque<char> characters{'a'};
    characters += ZyDeque<char>{'b'};
    EXPECT_EQ(characters[1], 'b');
}

TEST(ZyContainer, HoldsWhatCannotBeCopied)
{
    struct MoveOnly
    {
        explicit MoveOnly(int n) : number(new int(n)) {}
        bool operator==(MoveOnly const & other) const { return *number == *other.number; }
        ZyUniquePtr<int> number;
    };
    ZyVector<MoveOnly> owners;
    owners.add(MoveOnly(1));
    MoveOnly const two(2);
    EXPECT_ZY_THROW(owners.add(two), ZyInvalidCallException, "Item cannot be copied");
    EXPECT_EQ(owners.size(), 1u);
    EXPECT_TRUE(owners.contains(MoveOnly(1)));
    owners.remove(MoveOnly(1));
    EXPECT_TRUE(owners.isEmpty());
}

TEST(ZyContainer, RemoveKeepsTheOrderOfManyItems)
{
    ZyVector<int> numbers;
    for (int i = 0; i < 20000; ++i) {
        numbers.add(i % 2 == 0 ? -1 : i);
    }
    numbers.remove(-1);
    ASSERT_EQ(numbers.size(), 10000u);
    for (unsigned int i = 0; i < numbers.size(); ++i) {
        ASSERT_EQ(numbers[i], static_cast<int>(2 * i + 1));
    }
}
