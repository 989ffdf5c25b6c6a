// SPDX-License-Identifier: BSD-3-Clause
// Documents on several threads at once: the definitions of the bindings are shared by all of them, and
// nothing else is.
#include <ZyDeque.h>
#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyPoint.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyVariant.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLLoader.h>
#include <ZyXMLObject.h>
#include <ZyXMLStreamElementWriter.h>
#include <ZyXMLStreamReader.h>
#include <ZyXMLStreamWriter.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace
{
constexpr int threadCount = 8;

/** Runs a function on several threads, which wait for each other before they begin. */
template <class Function>
void onThreads(Function const & function)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&function, i] { function(i); });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
}

template <class... T>
std::vector<void const *> definitions()
{
    return {static_cast<void const *>(ZyXMLObject<T>::LoadRule().get())...};
}

std::vector<void const *> allDefinitions()
{
    return definitions<ZyVariant, int, double, ZyString, ZyFilePath, ZyPair<ZyFilePath, ZyFilePath>,
                       ZyPair<ZyString, ZyString>, ZyPoint, ZyPointD, ZyDeque<int>, ZyDeque<double>,
                       ZyDeque<ZyString>>();
}

ZyString writtenBy(int thread)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    {
        auto const root = writer.createElement("Values");
        for (int i = 0; i < 100; ++i) {
            ZyXMLObject<ZyVariant>::Write(*root->createElement("Value"), ZyVariant(1000 * thread + i));
        }
    }
    writer.finishDocument();
    return device.content();
}

std::vector<int> loaded(ZyString const & document)
{
    std::vector<int> values;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<ZyVariant>("Values/Value",
                           [&](ZyUniquePtr<ZyVariant> value) { values.push_back(value->asInteger()); });
    ZyStringDevice device(document);
    ZyXMLStreamReader reader(device);
    loader->load(reader);
    return values;
}
} // namespace

TEST(ZyXMLThreads, AreGivenOneDefinitionForEachType)
{
    // In a process of its own, as the tests are run, this is the making of the definitions.
    std::vector<std::vector<void const *>> found(threadCount);
    onThreads([&](int thread) { found[static_cast<std::size_t>(thread)] = allDefinitions(); });
    for (auto const & one : found) {
        EXPECT_EQ(one, allDefinitions());
    }
}

TEST(ZyXMLThreads, WriteAndLoadDocumentsAtTheSameTime)
{
    std::vector<std::vector<int>> found(threadCount);
    onThreads([&](int thread) {
        for (int turn = 0; turn < 5; ++turn) {
            found[static_cast<std::size_t>(thread)] = loaded(writtenBy(thread));
        }
    });
    for (int thread = 0; thread < threadCount; ++thread) {
        auto const & values = found[static_cast<std::size_t>(thread)];
        ASSERT_EQ(values.size(), 100U);
        EXPECT_EQ(values.front(), 1000 * thread);
        EXPECT_EQ(values.back(), 1000 * thread + 99);
    }
}

TEST(ZyXMLThreads, ShareTheRulesOfATypeInLoadersOfTheirOwn)
{
    ZyString const document = writtenBy(1);
    onThreads([&](int) { EXPECT_EQ(loaded(document).size(), 100U); });
}
