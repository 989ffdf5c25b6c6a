// SPDX-License-Identifier: BSD-3-Clause
// Tests of iteration across the container interface.
#include <ZyDeque.h>
#include <ZyIterator.h>
#include <ZyList.h>
#include <ZyString.h>
#include <ZyVector.h>

#include <ThrowsMessage.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

using Iterator = ZyIterator<int>;
using Traits = std::iterator_traits<ZyIterator<int const>>;

static_assert(std::has_virtual_destructor_v<Iterator>);
static_assert(sizeof(Iterator) == 3 * sizeof(void *), "a table pointer and a shared pointer");
static_assert(std::is_same_v<Traits::iterator_category, std::input_iterator_tag>);
static_assert(std::is_same_v<Traits::value_type, int> && std::is_same_v<Traits::reference, int const &>);
static_assert(std::is_copy_constructible_v<Iterator> && std::is_copy_assignable_v<Iterator> &&
              std::is_default_constructible_v<Iterator>);

TEST(ZyIterator, WalksEveryItemInOrder)
{
    ZyDeque<int> numbers{1, 2, 3};
    std::vector<int> seen;
    for (Iterator item = numbers.begin(); item != numbers.end(); ++item) {
        seen.push_back(*item);
    }
    EXPECT_EQ(seen, (std::vector<int>{1, 2, 3}));
}

TEST(ZyIterator, ServesRangeLoops)
{
    ZyVector<int> numbers{1, 2, 3};
    for (int & number : static_cast<ZyContainer<int> &>(numbers)) {
        number *= 2;
    }
    EXPECT_TRUE(numbers == (ZyVector<int>{2, 4, 6}));
    for (int const number : ZyDeque<int>()) {
        ADD_FAILURE() << number;
    }
}

TEST(ZyIterator, DereferenceGivesTheItemItself)
{
    ZyList<ZyString> texts{"abc"};
    ZyIterator<ZyString> const first = texts.begin();
    EXPECT_EQ(first->size(), 3u);
    *first = "changed";
    EXPECT_TRUE(texts.std_list().front() == "changed");
    EXPECT_EQ(first.operator->(), &texts.std_list().front());
}

TEST(ZyIterator, DereferenceAtTheEndThrows)
{
    ZyDeque<ZyString> texts;
    ZyDeque<ZyString> const & constant = texts;
    char const * const words = "Iterator cannot be dereferenced when at end";
    EXPECT_ZY_THROW(*texts.end(), ZyInvalidCallException, words);
    EXPECT_ZY_THROW(texts.end()->size(), ZyInvalidCallException, words);
    EXPECT_ZY_THROW(*constant.end(), ZyInvalidCallException, words);
    EXPECT_ZY_THROW(*texts.begin(), ZyInvalidCallException, words);
    texts.add("one");
    ZyIterator<ZyString> item = texts.begin();
    ++item;
    EXPECT_ZY_THROW(*item, ZyInvalidCallException, words);
}

TEST(ZyIterator, DereferenceWithoutDataThrows)
{
    ZyIterator<ZyString> const none;
    EXPECT_ZY_THROW(*none, ZyNullPointerException, "Iterator not assigned data");
    EXPECT_ZY_THROW(none->size(), ZyNullPointerException, "Iterator not assigned data");
}

TEST(ZyIterator, WithoutDataAdvancesNowhere)
{
    Iterator none;
    EXPECT_EQ(&++none, &none);
    none++;
    EXPECT_TRUE(none == Iterator());
}

TEST(ZyIterator, WithoutDataEqualsOnlyItsLike)
{
    ZyDeque<int> numbers{1};
    Iterator const none;
    EXPECT_TRUE(none == Iterator());
    EXPECT_FALSE(none != Iterator());
    EXPECT_FALSE(none == numbers.begin());
    EXPECT_FALSE(numbers.begin() == none);
    EXPECT_TRUE(none != numbers.end());
}

TEST(ZyIterator, EqualityIsThatOfThePosition)
{
    ZyDeque<int> numbers{1, 1};
    EXPECT_TRUE(numbers.begin() == numbers.begin());
    Iterator second = numbers.begin();
    ++second;
    EXPECT_TRUE(second != numbers.begin());
    ++second;
    EXPECT_TRUE(second == numbers.end());
}

TEST(ZyIterator, OfDifferentContainersDoNotCompare)
{
    ZyDeque<int> deque{1};
    ZyVector<int> vector{1};
    ZyList<int> list{1};
    EXPECT_THROW(static_cast<void>(deque.begin() == vector.begin()), std::bad_cast);
    EXPECT_THROW(static_cast<void>(vector.begin() == deque.begin()), std::bad_cast);
    EXPECT_THROW(static_cast<void>(list.begin() != vector.end()), std::bad_cast);
}

TEST(ZyIterator, CopyAdvancesAlone)
{
    ZyDeque<int> numbers{1, 2, 3};
    Iterator const first = numbers.begin();
    Iterator copy(first);
    ++copy;
    EXPECT_EQ(*first, 1);
    EXPECT_EQ(*copy, 2);
    Iterator assigned;
    assigned = copy;
    ++assigned;
    EXPECT_EQ(*copy, 2);
    EXPECT_EQ(*assigned, 3);
}

TEST(ZyIterator, CopyOfNothingIsNothing)
{
    Iterator const none;
    Iterator const copy(none);
    EXPECT_TRUE(copy == none);
    ZyDeque<int> numbers{1};
    Iterator assigned = numbers.begin();
    assigned = none;
    EXPECT_TRUE(assigned == Iterator());
}

TEST(ZyIterator, MovedFromIsWithoutData)
{
    ZyDeque<int> numbers{1};
    Iterator first = numbers.begin();
    Iterator second(std::move(first));
    EXPECT_EQ(*second, 1);
    EXPECT_ZY_THROW(*first, ZyNullPointerException, "Iterator not assigned data");
    first = std::move(second);
    EXPECT_EQ(*first, 1);
    EXPECT_TRUE(second == Iterator());
}

TEST(ZyIterator, AssignsToItself)
{
    ZyDeque<int> numbers{1};
    Iterator item = numbers.begin();
    Iterator & same = item;
    item = same;
    EXPECT_EQ(*item, 1);
    item = std::move(same);
    EXPECT_EQ(*item, 1);
}

TEST(ZyIterator, PostfixIncrementGivesTheOldPosition)
{
    ZyDeque<int> numbers{1, 2};
    Iterator item = numbers.begin();
    EXPECT_EQ(*item++, 1);
    EXPECT_EQ(*item, 2);
}

TEST(ZyIterator, ServesStandardAlgorithms)
{
    ZyList<int> const numbers{1, 2, 3, 2};
    EXPECT_EQ(std::count(numbers.begin(), numbers.end(), 2), 2);
    EXPECT_EQ(std::accumulate(numbers.begin(), numbers.end(), 0), 8);
    EXPECT_EQ(*std::find(numbers.begin(), numbers.end(), 3), 3);
    EXPECT_TRUE(std::find(numbers.begin(), numbers.end(), 9) == numbers.end());
    EXPECT_EQ(std::vector<int>(numbers.begin(), numbers.end()), (std::vector<int>{1, 2, 3, 2}));
    EXPECT_EQ(std::distance(numbers.begin(), numbers.end()), 4);
}

TEST(ZyIterator, OutlivesTheContainerVariableButNotItsItems)
{
    ZyList<int> numbers{1, 2};
    Iterator const first = numbers.begin();
    numbers.add(3); // a list keeps its items where they are
    EXPECT_EQ(*first, 1);
}

TEST(ZyContainerIteratorImpl, ClonesIndependently)
{
    std::vector<int> numbers{1, 2};
    using Impl = ZyContainerIteratorImpl<int, std::vector<int>::iterator>;
    Impl first(numbers.begin(), numbers.end());
    ZyUniquePtr<ZyIteratorImpl<int>> const copy = first.clone();
    EXPECT_TRUE(first == *copy);
    EXPECT_EQ(&++first, &first);
    EXPECT_TRUE(first != *copy);
    EXPECT_EQ(**copy, 1);
    EXPECT_TRUE(first.hasCurrent());
    ++first;
    EXPECT_FALSE(first.hasCurrent());
}

TEST(ZyContainerIteratorImpl, ComparesOnlyThePosition)
{
    std::vector<int> numbers{1, 2};
    using Impl = ZyContainerIteratorImpl<int, std::vector<int>::iterator>;
    EXPECT_TRUE(Impl(numbers.begin(), numbers.end()) == Impl(numbers.begin(), numbers.begin()));
}
