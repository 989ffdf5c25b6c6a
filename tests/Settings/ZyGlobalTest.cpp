// SPDX-License-Identifier: BSD-3-Clause
// Tests of the process-wide store.
#include <Settings/ZyGlobal_p.h>
#include <ZyException.h>
#include <ZyGlobal.h>
#include <ZyGlobalObject.h>
#include <ZyList.h>
#include <ZyVector.h>

#include <ThrowsMessage.h>
#include <gtest/gtest.h>

#include <mutex>
#include <shared_mutex>
#include <string>
#include <thread>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

static_assert(sizeof(ZyGlobal) == 2 * sizeof(void *), "a table pointer and the state");
static_assert(std::has_virtual_destructor_v<ZyGlobal> && !std::is_default_constructible_v<ZyGlobal> &&
              !std::is_copy_constructible_v<ZyGlobal>);
static_assert(std::is_abstract_v<ZyGlobalObject> && std::has_virtual_destructor_v<ZyGlobalObject>);
static_assert(sizeof(ZyGlobalObject) == sizeof(void *), "a table pointer only");
static_assert(std::is_base_of_v<ZyGlobalObject, ZyGlobalTemplateObject<int, 7>>);
static_assert(
    std::is_base_of_v<ZyGlobalTemplateObject<ZyDeque<double>, 1>, ZyContainerGlobalObject<double, 1>>);
static_assert(sizeof(ZyContainerGlobalObject<double, 1>) == sizeof(void *) + sizeof(ZySharedPtr<int>));

namespace
{
using Object = ZyUniquePtr<ZyGlobalObject>;

/** A host's own object, which tells when it dies. */
class Watched : public ZyGlobalObject
{
public:
    explicit Watched(int & deaths) : m_deaths(&deaths) {}
    Watched(Watched const &) = delete;
    Watched & operator=(Watched const &) = delete;
    ~Watched() override { ++*m_deaths; }

private:
    int * m_deaths;
};

/** An object that uses the store while it dies. */
class Restless : public ZyGlobalObject
{
public:
    Restless() = default;
    Restless(Restless const &) = delete;
    Restless & operator=(Restless const &) = delete;
    ~Restless() override { ZyGlobal::Set(1, ZyUUID("last words")); }
};

/** Leaves the store empty. */
class ZyGlobalStore : public testing::Test
{
protected:
    ~ZyGlobalStore() override { ZyGlobal::Clear(); }

    ZyUUID const id;
};

std::string invalid(char const * operation)
{
    return std::string("Invalid type for ZyGlobal::") + operation + " call";
}
} // namespace

TEST_F(ZyGlobalStore, ReadsSingleValuesBack)
{
    ZyGlobal::Set(1.5, id);
    EXPECT_EQ(ZyGlobal::GetDouble(id), 1.5);
    ZyGlobal::Set(-7, id);
    EXPECT_EQ(ZyGlobal::GetInt(id), -7);
    ZyGlobal::Set("text", id);
    EXPECT_EQ(ZyGlobal::GetString(id).toStdString(), "text");
}

TEST_F(ZyGlobalStore, ReadsASingleValueAsAContainer)
{
    ZyGlobal::Set(1.5, id);
    ASSERT_EQ(ZyGlobal::GetDoubles(id).size(), 1u);
    EXPECT_EQ(ZyGlobal::GetDoubles(id)[0], 1.5);
    EXPECT_EQ(&ZyGlobal::GetDouble(id), &ZyGlobal::GetDoubles(id)[0]);
}

TEST_F(ZyGlobalStore, ReadsAContainerOfOneAsASingleValue)
{
    ZyGlobal::Set(ZyDeque<double>{2.5}, id);
    EXPECT_EQ(ZyGlobal::GetDouble(id), 2.5);
    ZyGlobal::Set(ZyDeque<ZyString>{"one"}, id);
    EXPECT_EQ(ZyGlobal::GetString(id).toStdString(), "one");
}

TEST_F(ZyGlobalStore, RefusesToReadAnotherType)
{
    ZyGlobal::Set(1, id);
    EXPECT_ZY_THROW(ZyGlobal::GetDouble(id), ZyInvalidCallException, invalid("GetDouble"));
    EXPECT_ZY_THROW(ZyGlobal::GetDoubles(id), ZyInvalidCallException, invalid("GetDoubles"));
    EXPECT_ZY_THROW(ZyGlobal::GetString(id), ZyInvalidCallException, invalid("GetString"));
    EXPECT_ZY_THROW(ZyGlobal::GetStrings(id), ZyInvalidCallException, invalid("GetStrings"));
    ZyGlobal::Set(1.0, id);
    EXPECT_ZY_THROW(ZyGlobal::GetInt(id), ZyInvalidCallException, invalid("GetInt"));
    EXPECT_ZY_THROW(ZyGlobal::GetInts(id), ZyInvalidCallException, invalid("GetInts"));
}

TEST_F(ZyGlobalStore, RefusesToReadSeveralValuesAsOne)
{
    ZyGlobal::Set(ZyDeque<int>{1, 2}, id);
    EXPECT_ZY_THROW(ZyGlobal::GetInt(id), ZyInvalidCallException, invalid("GetInt"));
    EXPECT_EQ(ZyGlobal::GetInts(id), (ZyDeque<int>{1, 2}));
    ZyGlobal::Set(ZyDeque<double>{1, 2}, id);
    EXPECT_ZY_THROW(ZyGlobal::GetDouble(id), ZyInvalidCallException, invalid("GetDouble"));
}

TEST_F(ZyGlobalStore, KeepsAnEmptyContainer)
{
    ZyGlobal::Set(ZyVector<ZyString>(), id);
    EXPECT_EQ(ZyGlobal::GetStrings(id).size(), 0u);
    EXPECT_ZY_THROW(ZyGlobal::GetString(id), ZyInvalidCallException, invalid("GetString"));
}

TEST_F(ZyGlobalStore, Deliberate_global_missing_is_wrong_type)
{
    ZyUUID const unknown;
    EXPECT_ZY_THROW(ZyGlobal::GetDouble(unknown), ZyInvalidCallException, invalid("GetDouble"));
    EXPECT_ZY_THROW(ZyGlobal::GetDoubles(unknown), ZyInvalidCallException, invalid("GetDoubles"));
    EXPECT_ZY_THROW(ZyGlobal::GetInt(unknown), ZyInvalidCallException, invalid("GetInt"));
    EXPECT_ZY_THROW(ZyGlobal::GetInts(unknown), ZyInvalidCallException, invalid("GetInts"));
    EXPECT_ZY_THROW(ZyGlobal::GetString(unknown), ZyInvalidCallException, invalid("GetString"));
    EXPECT_ZY_THROW(ZyGlobal::GetStrings(unknown), ZyInvalidCallException, invalid("GetStrings"));
    EXPECT_TRUE(ZyGlobal::Get(unknown).expired());
}

TEST_F(ZyGlobalStore, DestroyingTheUnknownDoesNothing)
{
    ZyUUID const unknown;
    EXPECT_NO_THROW(ZyGlobal::Destroy(unknown));
    EXPECT_TRUE(ZyGlobal::Get(unknown).expired());
}

TEST_F(ZyGlobalStore, DestroysOneObject)
{
    ZyUUID const other;
    ZyGlobal::Set(1, id);
    ZyGlobal::Set(2, other);
    ZyGlobal::Destroy(id);
    EXPECT_TRUE(ZyGlobal::Get(id).expired());
    EXPECT_EQ(ZyGlobal::GetInt(other), 2);
}

TEST_F(ZyGlobalStore, CreatesEqualContentUnderDifferentIdentifiers)
{
    ZyUUID const a = ZyGlobal::Create(Object(new ZyContainerGlobalObject<int, 2>(ZyDeque<int>{5})));
    ZyUUID const b = ZyGlobal::Create(Object(new ZyContainerGlobalObject<int, 2>(ZyDeque<int>{5})));
    EXPECT_FALSE(a == b);
    EXPECT_EQ(ZyGlobal::GetInt(a), 5);
    EXPECT_EQ(ZyGlobal::GetInt(b), 5);
}

TEST_F(ZyGlobalStore, IdentifiersRespectCase)
{
    ZyGlobal::Set(1, ZyUUID("key"));
    ZyGlobal::Set(2, ZyUUID("KEY"));
    EXPECT_EQ(ZyGlobal::GetInt("key"), 1);
    EXPECT_EQ(ZyGlobal::GetInt("KEY"), 2);
    ZyGlobal::Set(3, ZyUUID(""));
    EXPECT_EQ(ZyGlobal::GetInt(""), 3);
}

TEST_F(ZyGlobalStore, TakesTheDequeOver)
{
    ZyDeque<double> values{1, 2, 3};
    double const * const first = &values[0];
    ZyGlobal::Set(std::move(values), id);
    EXPECT_EQ(&ZyGlobal::GetDoubles(id)[0], first);
    EXPECT_EQ(values.size(), 0u);
}

TEST_F(ZyGlobalStore, CopiesOtherContainersInTheirOrder)
{
    ZyList<int> list;
    list.add(3);
    list.add(1);
    list.add(2);
    ZyGlobal::Set(list, id);
    EXPECT_EQ(ZyGlobal::GetInts(id), (ZyDeque<int>{3, 1, 2}));
    EXPECT_EQ(list.size(), 3u);
    ZyDeque<double> const deque{0.5, 0.25};
    ZyGlobal::Set(deque, id);
    EXPECT_EQ(ZyGlobal::GetDoubles(id), deque);
    ZyVector<ZyString> texts;
    texts.add("b");
    texts.add("a");
    ZyGlobal::Set(texts, id);
    EXPECT_EQ(ZyGlobal::GetStrings(id), (ZyDeque<ZyString>{"b", "a"}));
}

TEST_F(ZyGlobalStore, ReplacingEndsTheOldObject)
{
    int deaths = 0;
    ZyGlobal::SetData(Object(new Watched(deaths)), id);
    ZyWeakPtr<ZyGlobalObject> const watched = ZyGlobal::Get(id);
    EXPECT_FALSE(watched.expired());
    ZyGlobal::Set("another type", id);
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(ZyGlobal::GetString(id).toStdString(), "another type");
}

TEST_F(ZyGlobalStore, AStrongPointerKeepsTheOldObject)
{
    int deaths = 0;
    ZyGlobal::SetData(Object(new Watched(deaths)), id);
    ZySharedPtr<ZyGlobalObject> kept = ZyGlobal::Get(id).lock();
    ZyGlobal::Destroy(id);
    EXPECT_EQ(deaths, 0);
    kept.reset();
    EXPECT_EQ(deaths, 1);
}

TEST_F(ZyGlobalStore, HandsOutTheObjectItself)
{
    int deaths = 0;
    auto * const object = new Watched(deaths);
    ZyUUID const fresh = ZyGlobal::Create(Object(object));
    EXPECT_EQ(ZyGlobal::Get(fresh).lock().get(), object);
    EXPECT_ZY_THROW(ZyGlobal::GetDouble(fresh), ZyInvalidCallException, invalid("GetDouble"));
    ZyGlobal::Destroy(fresh);
    EXPECT_EQ(deaths, 1);
}

TEST_F(ZyGlobalStore, TagsTellContainersOfOneTypeApart)
{
    ZyGlobal::SetData(Object(new ZyContainerGlobalObject<double, 9>(ZyDeque<double>{1})), id);
    EXPECT_ZY_THROW(ZyGlobal::GetDouble(id), ZyInvalidCallException, invalid("GetDouble"));
    ZyGlobal::SetData(Object(new ZyContainerGlobalObject<double, 1>(ZyDeque<double>{1})), id);
    EXPECT_EQ(ZyGlobal::GetDouble(id), 1);
}

TEST_F(ZyGlobalStore, AContainerObjectWithoutADequeIsNull)
{
    ZyGlobal::SetData(Object(new ZyContainerGlobalObject<double, 1>), id);
    EXPECT_ZY_THROW(ZyGlobal::GetDouble(id), ZyNullPointerException, "");
    EXPECT_ZY_THROW(ZyGlobal::GetDoubles(id), ZyNullPointerException, "");
    ZyGlobal::SetData(Object(new ZyContainerGlobalObject<int, 2>), id);
    EXPECT_ZY_THROW(ZyGlobal::GetInt(id), ZyNullPointerException, "");
    EXPECT_ZY_THROW(ZyGlobal::GetInts(id), ZyNullPointerException, "");
    ZyGlobal::SetData(Object(new ZyContainerGlobalObject<ZyString, 3>), id);
    EXPECT_ZY_THROW(ZyGlobal::GetString(id), ZyNullPointerException, "");
    EXPECT_ZY_THROW(ZyGlobal::GetStrings(id), ZyNullPointerException, "");
}

TEST_F(ZyGlobalStore, StoresANullPointerAsNothing)
{
    ZyGlobal::SetData(Object(), id);
    EXPECT_TRUE(ZyGlobal::Get(id).expired());
    EXPECT_ZY_THROW(ZyGlobal::GetInt(id), ZyInvalidCallException, invalid("GetInt"));
    EXPECT_NO_THROW(ZyGlobal::Destroy(id));
}

TEST_F(ZyGlobalStore, ClearsEverything)
{
    int deaths = 0;
    ZyGlobal::SetData(Object(new Watched(deaths)), id);
    ZyGlobal::Set(1, ZyUUID());
    ZyGlobal::Clear();
    EXPECT_EQ(deaths, 1);
    EXPECT_TRUE(ZyGlobal::Get(id).expired());
    EXPECT_NO_THROW(ZyGlobal::Clear());
}

TEST_F(ZyGlobalStore, ADyingObjectMayUseIt)
{
    ZyUUID const words("last words");
    ZyGlobal::SetData(Object(new Restless), id);
    ZyGlobal::Set(2, id);
    EXPECT_EQ(ZyGlobal::GetInt(words), 1);
    ZyGlobal::SetData(Object(new Restless), id);
    ZyGlobal::Set(5, words);
    ZyGlobal::Destroy(id);
    EXPECT_EQ(ZyGlobal::GetInt(words), 1);
    ZyGlobal::SetData(Object(new Restless), id);
    ZyGlobal::Clear();
    EXPECT_EQ(ZyGlobal::GetInt(words), 1);
}

TEST_F(ZyGlobalStore, MayBeMadeByAnyOfManyThreads)
{
    // In a process of its own, as the tests are run, this is the making of the store.
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([] { EXPECT_TRUE(ZyGlobal::Get("nothing").expired()); });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
}

TEST_F(ZyGlobalStore, ServesManyReadersAndOneWriterUnderTheCallersLock)
{
    std::shared_mutex mutex;
    ZyGlobal::Set(0, id);
    std::vector<std::thread> threads;
    for (int reader = 0; reader < 4; ++reader) {
        threads.emplace_back([&] {
            int last = 0;
            for (int reading = 0; reading < 200; ++reading) {
                std::shared_lock<std::shared_mutex> const lock(mutex);
                int const now = ZyGlobal::GetInt(id);
                EXPECT_GE(now, last);
                EXPECT_FALSE(ZyGlobal::Get(id).expired());
                last = now;
            }
        });
    }
    for (int value = 1; value <= 200; ++value) {
        std::unique_lock<std::shared_mutex> const lock(mutex);
        ZyGlobal::Set(value, id);
        ZyGlobal::Create(Object(new ZyContainerGlobalObject<int, 2>(ZyDeque<int>{value})));
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
}

TEST_F(ZyGlobalStore, StrongPointersMayOutliveTheLock)
{
    std::mutex mutex;
    ZyGlobal::Set(0, id);
    std::thread reader([&] {
        for (int i = 0; i < 200; ++i) {
            ZySharedPtr<ZyGlobalObject> object;
            {
                std::lock_guard<std::mutex> const lock(mutex);
                object = ZyGlobal::Get(id).lock();
            }
            // The store may have another one by now; this one stays as it is.
            EXPECT_TRUE(
                (ZyDynamicPointerCast<ZyContainerGlobalObject<int, 2>>(object)->value()->size() == 1));
        }
    });
    for (int i = 0; i < 200; ++i) {
        std::lock_guard<std::mutex> const lock(mutex);
        ZyGlobal::Set(i, id);
    }
    reader.join();
}

TEST(ZyGlobalTable, BeginsAndClearsWithEightBuckets)
{
    std::size_t const buckets = ZyGlobalTable::Map(8).bucket_count(); // some libraries take a few more
    ZyGlobalTable table;
    EXPECT_EQ(table.objects().bucket_count(), buckets);
    EXPECT_EQ(table.objects().max_load_factor(), 1.0F);
    for (int i = 0; i < 1000; ++i) {
        table.set(ZySharedPtr<ZyGlobalObject>(), ZyUUID(ZyString(i)));
    }
    EXPECT_GE(table.objects().bucket_count(), 1000u);
    table.clear();
    EXPECT_TRUE(table.objects().empty());
    EXPECT_EQ(table.objects().bucket_count(), buckets);
    EXPECT_EQ(table.objects().max_load_factor(), 1.0F);
}

TEST(ZyGlobalTemplateObject, SharesItsValue)
{
    ZySharedPtr<int> const value(new int(5));
    ZyGlobalTemplateObject<int, 7> const object(value);
    EXPECT_EQ(object.value().get(), value.get());
    EXPECT_EQ(value.use_count(), 2);
    EXPECT_FALSE((ZyGlobalTemplateObject<int, 7>().value()));
}
