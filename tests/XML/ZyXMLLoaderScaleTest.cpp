// SPDX-License-Identifier: BSD-3-Clause
// Loader and factory on documents of any size and depth, and the shared rules under many threads.
#include <ZyXMLLoader.h>

#include "Sanitizers.h"
#include "ThrowsMessage.h"
#include "XmlLoad.h"

#include <ZyDataTable.h>
#include <ZyDeque.h>
#include <ZyException.h>
#include <ZyFilePath.h>
#include <ZyIODevice.h>
#include <ZyPair.h>
#include <ZyTimeDuration.h>
#include <ZyTimePoint.h>
#include <ZyUUID.h>
#include <ZyVariant.h>
#include <ZyXMLFactory.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <fstream>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace
{
/** A device that gives blocks as they are asked for, and nothing else. */
class BlockDevice : public ZyIODevice
{
public:
    /** \param next gives the next block, of at most 16,000 bytes; an empty one ends the document */
    explicit BlockDevice(std::function<std::string()> next) : m_next(std::move(next)) {}

    void seek_read(unsigned int) override {}
    void seek_write(unsigned int) override {}
    bool atEnd() const override { return false; }

protected:
    bool onOpen(Mode) override { return true; }
    void onClose() override {}
    ZyString onRead(unsigned int count) override
    {
        std::string block = m_next();
        EXPECT_LE(block.size(), count);
        return ZyString(std::move(block));
    }
    unsigned int onWrite(ZyString const &) override { return 0; }

private:
    std::function<std::string()> m_next;
};

std::string nested(std::size_t depth, std::string const & innermost = "")
{
    std::string text;
    for (std::size_t i = 0; i < depth; ++i) {
        text += "<a>";
    }
    text += innermost;
    for (std::size_t i = 0; i < depth; ++i) {
        text += "</a>";
    }
    return text;
}

ZyString pathOf(std::size_t depth)
{
    std::string text = "a";
    for (std::size_t i = 1; i < depth; ++i) {
        text += "/a";
    }
    return ZyString(text);
}

/** The memory that the process holds, in KiB; 0 where the system does not tell. */
std::size_t residentKiB()
{
    std::ifstream file("/proc/self/statm");
    std::size_t all = 0;
    std::size_t resident = 0;
    file >> all >> resident;
    return resident * 4;
}

constexpr std::size_t deep = 100000;

#if ZY_ADDRESS_SANITIZER || ZY_THREAD_SANITIZER
constexpr std::size_t elementCount = 1000000;
constexpr bool memoryIsItsOwn = false; // freed blocks are kept back
#else
constexpr std::size_t elementCount = 10000000;
constexpr bool memoryIsItsOwn = true;
#endif
} // namespace

TEST(ZyXMLLoaderDepth, IsNoMatterWhereNothingIsToBeFound)
{
    int values = 0;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<int>("r/v", [&](ZyUniquePtr<int>) { ++values; });
    loadText(*loader, "<r>" + nested(deep) + "<v>1</v></r>");
    EXPECT_EQ(values, 1);
}

TEST(ZyXMLLoaderDepth, IsNoMatterWhereAPathLeads)
{
    int values = 0;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<int>(pathOf(deep), [&](ZyUniquePtr<int> value) { values += *value; });
    loadText(*loader, nested(deep, "7"));
    EXPECT_EQ(values, 7);
}

TEST(ZyXMLLoaderDepth, IsNoMatterWithARuleForEveryLevel)
{
    constexpr std::size_t levels = 2000; // a rule keeps its path, so that their texts grow with the square
    std::size_t starts = 0;
    std::size_t finishes = 0;
    ZySharedPtr<ZyXMLLambdaDefinition<int>> const definition(new ZyXMLLambdaDefinition<int>);
    definition->start = [&](ZyXMLRule &, ZyXMLElementReader &) { ++starts; };
    definition->finish = [&](ZyXMLRule &) {
        ++finishes;
        return ZyUniquePtr<int>();
    };
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    for (std::size_t depth = 1; depth <= levels; ++depth) {
        loader->add(ZyUniquePtr<ZyXMLRule>(new ZyXMLLambdaRule<int>(pathOf(depth), definition)));
    }
    loadText(*loader, nested(deep));
    EXPECT_EQ(starts, levels);
    EXPECT_EQ(finishes, levels);
}

TEST(ZyXMLLoaderDepth, IsNoMatterWhereAnExceptionPasses)
{
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<double>(pathOf(deep), {});
    EXPECT_ZY_THROW(loadText(*loader, nested(deep, "x")), ZyInvalidParameterException,
                    "Invalid string length");
}

TEST(ZyXMLLoaderDepth, IsNoMatterWhereADocumentBreaksOff)
{
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<ZyPoint>(pathOf(deep), {}); // which reads no text
    std::string const text = nested(deep);
    EXPECT_NO_THROW(loadText(*loader, text.substr(0, deep * 3)));
    EXPECT_NO_THROW(loadText(*loader, "<r>" + text.substr(0, deep * 3)));
}

TEST(ZyXMLFactoryDepth, IsNoMatter)
{
    class Thing : public ZyXMLSerializableObject
    {
    public:
        ZyString xmlElementName() const override { return "a"; }

    protected:
        void onWriteXMLAttributes(ZyXMLElementWriter &) const override {}
        void onWriteXMLContent(ZyXMLElementWriter &) const override {}
    };
    int built = 0;
    int finished = 0;
    ZyXMLFactory factory;
    for (ZyString const & path : {pathOf(1), pathOf(deep)}) {
        factory.registerBuilder(
            path,
            [&](ZyXMLElementReader &) {
                ++built;
                return ZySharedPtr<ZyXMLSerializableObject>(new Thing);
            },
            [&](ZySharedPtr<ZyXMLSerializableObject> const &) { ++finished; });
    }
    for (std::string const & text : {nested(deep), nested(deep * 2)}) {
        ZyStringDevice device{ZyString(text)};
        ZyXMLStreamReader reader(device);
        factory.load(reader);
    }
    EXPECT_EQ(built, 4);
    EXPECT_EQ(finished, 4);
}

TEST(ZyXMLLoaderWidth, KeepsMemoryFlat)
{
    std::string piece = "<v>1</v><x y='z'><v/></x>";
    for (int i = 3; i < 50; ++i) {
        piece += "<x/>";
    }
    std::string block;
    std::size_t const pieces = 16000 / piece.size();
    for (std::size_t i = 0; i < pieces; ++i) {
        block += piece;
    }
    std::size_t const blocks = elementCount / (pieces * 50) + 1;
    std::size_t given = 0;
    BlockDevice device([&]() -> std::string {
        std::size_t const number = given++;
        return number == 0 ? "<root>" : number <= blocks ? block : number == blocks + 1 ? "</root>" : "";
    });
    std::size_t values = 0;
    std::size_t start = 0;
    std::size_t most = 0;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<int>("root/v", [&](ZyUniquePtr<int> value) {
        values += static_cast<std::size_t>(*value);
        if (values == 1000) {
            start = residentKiB();
        } else if (values % 1000 == 0) {
            most = std::max(most, residentKiB());
        }
    });
    {
        ZyXMLStreamReader reader(device);
        loader->load(reader);
        EXPECT_EQ(reader.tokenType(), ZyXMLStreamReader::EndElement);
        EXPECT_EQ(reader.next(), ZyXMLStreamReader::EndDocument);
    }
    EXPECT_EQ(values, blocks * pieces);
    if (memoryIsItsOwn) {
        EXPECT_LT(most, start + 8 * 1024);
    }
}

TEST(ZyXMLLoaderWidth, LeavesNoElementAlive)
{
    std::vector<std::weak_ptr<ZyXMLStreamElementReader>> elements;
    ZyStringDevice device("<r><v><w/></v><v></v><x><v/></x></r>");
    ZyXMLStreamReader reader(device);
    ZySharedPtr<ZyXMLLambdaDefinition<int>> const definition(new ZyXMLLambdaDefinition<int>);
    definition->start = [&](ZyXMLRule &, ZyXMLElementReader & element) {
        elements.push_back(reader.currentElement());
        element.children();
    };
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    for (char const * path : {"r", "r/v", "r/v/w", "r/x/v"}) {
        loader->add(ZyUniquePtr<ZyXMLRule>(new ZyXMLLambdaRule<int>(path, definition)));
    }
    loader->load(reader);
    EXPECT_EQ(elements.size(), 5u);
    EXPECT_TRUE(std::all_of(elements.begin(), elements.end(), [](auto const & e) { return e.expired(); }));
}

TEST(ZyXMLLoaderWidth, ClosedLeavesCostNoException)
{
    // A million exceptions take seconds; the text of each element is read, which closes it.
    std::size_t starts = 0;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<int>("r/v", [&](ZyUniquePtr<int>) { ++starts; });
    std::string text;
    for (int i = 0; i < 10000; ++i) {
        text += "<v></v>";
    }
    loadText(*loader, "<r>" + text + "</r>");
    EXPECT_EQ(starts, 10000u);
}

namespace
{
/** Asks for the rule of a type from several threads at once, and expects one answer. */
template <class T>
void expectOneRule()
{
    constexpr std::size_t count = 8;
    std::vector<void const *> rules(count);
    std::atomic<std::size_t> ready{0};
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < count; ++i) {
        threads.emplace_back([&, i] {
            for (++ready; ready < count;) {
                std::this_thread::yield();
            }
            rules[i] = ZyXMLObject<T>::LoadRule().get();
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_NE(rules[0], nullptr);
    EXPECT_EQ(std::count(rules.begin(), rules.end(), rules[0]), static_cast<std::ptrdiff_t>(count));
}
} // namespace

TEST(ZyXMLObjectThreads, AreGivenOneRule)
{
    expectOneRule<ZyDataTable>(); // first, so that what it rests on is made under way
    expectOneRule<ZyVariant>();
    expectOneRule<ZyDeque<ZyString>>();
    expectOneRule<ZyDeque<double>>();
    expectOneRule<ZyDeque<int>>();
    expectOneRule<ZyPointD>();
    expectOneRule<ZyPoint>();
    expectOneRule<ZyPair<ZyString, ZyString>>();
    expectOneRule<ZyPair<ZyFilePath, ZyFilePath>>();
    expectOneRule<ZyTimePoint>();
    expectOneRule<ZyTimeDuration>();
    expectOneRule<ZyUUID>();
    expectOneRule<ZyFilePath>();
    expectOneRule<ZyString>();
    expectOneRule<double>();
    expectOneRule<int>();
}

TEST(ZyXMLObjectThreads, LoadDocumentsOfTheirOwnByTheSameRules)
{
    std::atomic<int> sum{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
            loader->add<ZyVariant>("r/v", [&](ZyUniquePtr<ZyVariant> value) { sum += value->asInteger(); });
            for (int round = 0; round < 20; ++round) {
                loadText(*loader, "<r><v><Integer>1</Integer></v><v><Integer>2</Integer></v></r>");
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_EQ(sum, 4 * 20 * 3);
}
