// SPDX-License-Identifier: BSD-3-Clause
// The containers: growing by writing, the shared default, and the order of the hash table's walk.
#include <keelbase/Keelbase.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <numeric>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace
{

using testing::ElementsAre;

struct Record
{
    int number = 3;
};

std::vector<int> walk(YHashTable<int> const & table)
{
    std::vector<int> keys;
    table.forEach([&](int key, int) { keys.push_back(key); });
    return keys;
}

YHashTable<int> tableOf(std::vector<int> const & keys)
{
    YHashTable<int> table;
    for (int const key : keys) {
        table.add(key, key * 10);
    }
    return table;
}

/** The first keys of the walk over 1 to a number. */
std::vector<int> walkOfFirst(int count, std::size_t shown)
{
    std::vector<int> keys(static_cast<std::size_t>(count));
    std::iota(keys.begin(), keys.end(), 1);
    std::vector<int> order = walk(tableOf(keys));
    EXPECT_EQ(order.size(), keys.size());
    order.resize(shown);
    return order;
}

} // namespace

TEST(YVector, GrowsWithDefaultsWhenWrittenTo)
{
    YVector<Record> vector;
    EXPECT_TRUE(vector.isEmpty());
    vector[2].number = 7;
    ASSERT_EQ(vector.size(), 3);
    EXPECT_EQ(std::as_const(vector)[0].number, 3);
    EXPECT_EQ(std::as_const(vector)[2].number, 7);
}

TEST(YVector, GrowsWhenOnlyReadThroughTheWritingAccess)
{
    YVector<int> vector = {1};
    EXPECT_EQ(vector[1], 0);
    EXPECT_EQ(vector.size(), 2);
}

TEST(YVector, SharesOneDefaultBeyondTheEndAndBeforeTheStart)
{
    YVector<Record> const vector = {Record{1}};
    EXPECT_EQ(vector[1].number, 3);
    EXPECT_EQ(&vector[1], &vector[std::numeric_limits<int>::max()]);
    EXPECT_EQ(&vector[1], &vector[-1]);
    EXPECT_EQ(&vector[1], &vector[std::numeric_limits<int>::min()]);
    EXPECT_EQ(vector.size(), 1);
}

TEST(YVector, RefusesToGrowToANegativeIndex)
{
    YVector<int> vector = {1};
    EXPECT_THROW(vector[-1] = 2, std::out_of_range);
    EXPECT_EQ(vector.size(), 1);
}

TEST(YVector, AddsClearsAndIsWalked)
{
    YArray<std::string> vector;
    vector.add("a");
    vector.add("b");
    EXPECT_THAT(vector, ElementsAre("a", "b"));
    for (std::string & text : vector) {
        text += '!';
    }
    EXPECT_THAT(std::as_const(vector), ElementsAre("a!", "b!"));
    vector.clear();
    EXPECT_TRUE(vector.isEmpty());
}

TEST(YList, KeepsTheOrderOfAdding)
{
    YList<int> list;
    EXPECT_TRUE(list.isEmpty());
    list.add(2);
    list.add(1);
    list.add(2);
    EXPECT_EQ(list.size(), 3);
    EXPECT_THAT(std::as_const(list), ElementsAre(2, 1, 2));
    *list.begin() = 5;
    EXPECT_THAT(list, ElementsAre(5, 1, 2));
    list.clear();
    EXPECT_EQ(list.size(), 0);
}

TEST(YHashTable, FindsWhatWasAdded)
{
    YHashTable<int> table = tableOf({1, 102, -7});
    ASSERT_NE(table.find(102), nullptr);
    EXPECT_EQ(*table.find(102), 1020);
    EXPECT_EQ(*std::as_const(table).find(-7), -70);
    EXPECT_EQ(table.find(203), nullptr);
    EXPECT_EQ(std::as_const(table).find(0), nullptr);
    EXPECT_EQ(table.size(), 3);
}

TEST(YHashTable, ReplacesTheValueOfAKeyAndKeepsItsPlace)
{
    YHashTable<int> table = tableOf({7, 108});
    table.add(7, 1) += 1;
    EXPECT_EQ(*table.find(7), 2);
    EXPECT_THAT(walk(table), ElementsAre(108, 7));
}

TEST(YHashTable, WalksBucketByBucketWithTheNewestFirst)
{
    EXPECT_THAT(walk(tableOf({5, 4, 3, 2, 1})), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(walk(tableOf({1, 102, 203})), ElementsAre(203, 102, 1));
    EXPECT_THAT(walk(tableOf({203, 102, 1})), ElementsAre(1, 102, 203));
    EXPECT_THAT(walk(tableOf({7, 108, 7})), ElementsAre(108, 7));
}

TEST(YHashTable, TakesKeysAsUnsigned)
{
    EXPECT_THAT(walk(tableOf({1, -1, -2, 0})), ElementsAre(0, 1, -2, -1));
    YHashTable<int> table;
    table.add(std::numeric_limits<int>::min(), 0);
    table.add(std::numeric_limits<int>::max(), 0);
    EXPECT_NE(table.find(std::numeric_limits<int>::min()), nullptr);
    EXPECT_NE(table.find(std::numeric_limits<int>::max()), nullptr);
}

TEST(YHashTable, WalksAsToldUpToTwoABucket)
{
    EXPECT_THAT(walkOfFirst(101, 6), ElementsAre(101, 1, 2, 3, 4, 5));
    EXPECT_THAT(walkOfFirst(102, 6), ElementsAre(101, 102, 1, 2, 3, 4));
    EXPECT_THAT(walkOfFirst(202, 8), ElementsAre(202, 101, 102, 1, 103, 2, 104, 3));
}

TEST(YHashTable, GrowsWithTheEntryThatIsOneTooMany)
{
    EXPECT_THAT(walkOfFirst(203, 8), ElementsAre(203, 1, 2, 3, 4, 5, 6, 7));
    EXPECT_THAT(walkOfFirst(406, 4), ElementsAre(406, 203, 204, 1));
    EXPECT_THAT(walkOfFirst(407, 4), ElementsAre(407, 1, 2, 3));
}

TEST(YHashTable, DoesNotGrowWhenAValueIsReplaced)
{
    YHashTable<int> table;
    for (int key = 1; key <= 202; ++key) {
        table.add(key, 0);
    }
    table.add(202, 1);
    EXPECT_EQ(walk(table).front(), 202);
    EXPECT_EQ(walk(table)[1], 101);
}

TEST(YHashTable, KeepsTheOrderOfChainsWhenItGrows)
{
    YHashTable<int> table = tableOf({1, 1 + 101 * 203}); // together before and after
    for (int key = 2; table.size() < 203; ++key) {
        table.add(key, 0);
    }
    std::vector<int> const order = walk(table);
    EXPECT_EQ(order[0], 1 + 101 * 203);
    EXPECT_EQ(order[1], 1);
}

TEST(YHashTable, KeepsAddressesOfEntriesWhileItGrows)
{
    YHashTable<int> table = tableOf({1});
    int * const value = table.find(1);
    for (int key = 2; key < 5000; ++key) {
        table.add(key, key);
    }
    EXPECT_EQ(table.find(1), value);
    EXPECT_EQ(table.size(), 4999);
    EXPECT_EQ(*table.find(4999), 4999);
}

TEST(YHashTable, CopiesWithTheOrderInsideChains)
{
    YHashTable<int> table = tableOf({1, 102, 2, 103, 204});
    YHashTable<int> const copy = table;
    EXPECT_EQ(walk(copy), walk(table));
    *table.find(1) = 5;
    EXPECT_EQ(*copy.find(1), 10);
    YHashTable<int> assigned = tableOf({9});
    assigned = copy;
    EXPECT_EQ(walk(assigned), walk(table));
    assigned.add(305, 0); // goes to the head of the copied chain
    EXPECT_THAT(walk(assigned), ElementsAre(1 + 101, 1, 305, 204, 103, 2));
}

TEST(YHashTable, IsEmptyAndUsefulAfterAMove)
{
    YHashTable<int> table = tableOf({1, 102});
    int const * const value = table.find(1);
    YHashTable<int> moved = std::move(table);
    EXPECT_EQ(moved.find(1), value);
    EXPECT_TRUE(table.isEmpty()); // NOLINT(bugprone-use-after-move): what this is about
    EXPECT_EQ(table.find(1), nullptr);
    table.add(3, 30);
    EXPECT_THAT(walk(table), ElementsAre(3));
    table = std::move(moved);
    EXPECT_THAT(walk(table), ElementsAre(102, 1));
}

TEST(YHashTable, StartsAnewWhenCleared)
{
    YHashTable<int> table;
    for (int key = 1; key <= 300; ++key) {
        table.add(key, 0);
    }
    table.clear();
    EXPECT_TRUE(table.isEmpty());
    table.add(1, 0);
    table.add(102, 0); // one bucket again
    EXPECT_THAT(walk(table), ElementsAre(102, 1));
}

TEST(YHashTable, LetsTheWalkChangeValues)
{
    YHashTable<int> table = tableOf({1, 2});
    table.forEach([](int key, int & value) { value = -key; });
    EXPECT_EQ(*table.find(2), -2);
}

TEST(YHashTable, TakesAChainOfManyEntries)
{
    YHashTable<int> table;
    for (int i = 0; i < 5000; ++i) {
        table.add(i * 407 * 203, i); // of few buckets for long
    }
    EXPECT_EQ(*table.find(4999 * 407 * 203), 4999);
    YHashTable<int> const copy = table;
    EXPECT_EQ(walk(copy), walk(table));
}
