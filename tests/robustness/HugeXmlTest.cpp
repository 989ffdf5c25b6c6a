// SPDX-License-Identifier: BSD-3-Clause
// Documents of sizes that nobody would hold in memory.
#include "Sanitizers.h"
#include "SourceDevice.h"

#include <ZyString.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLStreamElementReader.h>
#include <ZyXMLStreamReader.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <string>

namespace
{
#if ZY_ADDRESS_SANITIZER || ZY_THREAD_SANITIZER
constexpr bool ownsItsMemory = false; // the sanitizer keeps what has been freed
#else
constexpr bool ownsItsMemory = true;
#endif

/** The memory that the process has, KiB; 0 where the system does not tell. */
long residentKiB()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0) {
            return std::stol(line.substr(6));
        }
    }
    return 0;
}

/** How much memory the process has gained at most at the moments of looking, beyond the first of them. */
class Growth
{
public:
    void look()
    {
        long const now = residentKiB();
        m_first = m_first == 0 ? now : m_first;
        m_most = std::max(m_most, now - m_first);
    }
    long mostKiB() const { return m_most; }

private:
    long m_first = 0;
    long m_most = 0;
};

constexpr long allowedKiB = 8 * 1024;
} // namespace

TEST(HugeXml, StreamsWithoutGrowing)
{
    constexpr unsigned count = 500000;
    SourceDevice device(
        "<list version='1'>",
        "<item id='0123456789' name='a name of an item'>\n <value>some text</value>\n</item>\n", count,
        "</list>");
    ZyXMLStreamReader reader(device);
    std::shared_ptr<ZyXMLStreamElementReader> const root = reader.nextElement();
    auto child = root->children().begin();
    auto const end = root->children().end();
    Growth growth;
    unsigned items = 0;
    std::weak_ptr<ZyXMLElementReader> last;
    for (; child != end; ++child, ++items) {
        EXPECT_TRUE(last.expired());
        last = *child;
        ASSERT_EQ((*child)->attributes().size(), 2u);
        for (auto const & value : (*child)->children()) {
            ASSERT_EQ(value->readText().size(), 9u);
        }
        if (items % 50000 == 10000) {
            growth.look();
        }
    }
    EXPECT_EQ(items, count);
    EXPECT_TRUE(last.expired());
    if (ownsItsMemory) {
        EXPECT_LT(growth.mostKiB(), allowedKiB);
    }
}

TEST(HugeXml, ReadsTenMillionElements)
{
    constexpr unsigned count = ownsItsMemory ? 10000000 : 500000;
    SourceDevice device("<list>", "<i/>", count, "</list>");
    ZyXMLStreamReader reader(device);
    Growth growth;
    unsigned elements = 0;
    while (reader.nextElement()) {
        ++elements;
        if (elements % 1000000 == 100000) {
            growth.look();
        }
    }
    EXPECT_EQ(elements, count + 1);
    if (ownsItsMemory) {
        EXPECT_LT(growth.mostKiB(), allowedKiB);
    }
}
