// SPDX-License-Identifier: BSD-3-Clause
// Loading by rules when memory ends.
#include "AllocationFault.h"

#include <ZyDataTable.h>
#include <ZyDeque.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyVariant.h>
#include <ZyXMLLoader.h>
#include <ZyXMLStreamReader.h>

#include <gtest/gtest.h>

#include <memory>

namespace
{
constexpr char document[] =
    "<r><name>a text that is longer than what a string keeps in itself</name><other><x/></other>"
    "<items><Item>1</Item><Item>2</Item></items><table><Rows><Row header='1'><Item hspan='2'><Value>"
    "<String>t</String></Value></Item></Row></Rows></table></r>";

/** What a load works on, made while memory is there: Qt's own objects cannot be made without. */
struct Job
{
    explicit Job(ZySharedPtr<int> const & token)
    {
        add(token);
        reader.next();
    }
    void add(ZySharedPtr<int> const & token)
    {
        loader->add<ZyString>("r/name", [this, token](ZyUniquePtr<ZyString>) { ++received; });
        loader->add<ZyDeque<int>>(
            "r/items", [this, token](ZyUniquePtr<ZyDeque<int>> items) { received += items->size(); });
        loader->add<ZyDataTable>(
            "r/table", [this, token](ZyUniquePtr<ZyDataTable> table) { received += table->numberRows(); });
    }

    unsigned received = 0;
    ZyStringDevice device{document};
    ZyXMLStreamReader reader{device};
    ZySharedPtr<ZyXMLLoader> loader = ZyXMLLoader::Create();
};
} // namespace

TEST(AllocationFailure, LosesNothingWhenRulesAreAdded)
{
    // Made first: a definition that is under way when memory ends is made again by the next one who asks.
    ZyXMLObject<ZyDataTable>::LoadRule();
    ZySharedPtr<int> const token(new int(0));
    EXPECT_GT(failEveryAllocation(
                  [&] {
                      ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
                      loader->add<ZyDataTable>("r/table", [token](ZyUniquePtr<ZyDataTable>) {});
                  },
                  [&](bool) { EXPECT_EQ(token.use_count(), 1); }),
              100u);
}

TEST(AllocationFailure, LosesNothingWhenADocumentIsLoaded)
{
    ZySharedPtr<int> const token(new int(0));
    std::unique_ptr<Job> job = std::make_unique<Job>(token);
    EXPECT_GT(failEveryAllocation([&] { job->loader->load(job->reader); },
                                  [&](bool returned) {
                                      EXPECT_TRUE(!returned || job->received == 4) << job->received;
                                      job.reset();
                                      EXPECT_EQ(token.use_count(), 1);
                                      job = std::make_unique<Job>(token);
                                  }),
              50u);
}
