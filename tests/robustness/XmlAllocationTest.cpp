// SPDX-License-Identifier: BSD-3-Clause
// Documents when memory ends: reading stops with an exception, and nothing is left behind.
#include "AllocationFault.h"

#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLStreamElementReader.h>
#include <ZyXMLStreamReader.h>

#include <memory>
#include <string>
#include <vector>

namespace
{
constexpr char document[] =
    "<limits unit='a text that is longer than what a string keeps in itself' x='1' X='2'>"
    "<limit name='one'>a text that is longer than what a string keeps in itself</limit>"
    "<a-name-that-is-longer-than-what-a-string-keeps><empty/></"
    "a-name-that-is-longer-than-what-a-string-keeps>"
    "</limits>";

using Watch = std::vector<std::weak_ptr<ZyXMLElementReader>>;

/** Reads everything in an element, and notes which objects there are in room that stands ready. */
void readElement(ZyXMLElementReader & element, Watch & watch)
{
    static_cast<void>(element.attributes().size());
    for (auto const & child : element.children()) {
        watch.push_back(child);
        if (child->name() == "limit") {
            static_cast<void>(child->readAttribute("NAME"));
            static_cast<void>(child->readText());
        } else {
            readElement(*child, watch);
        }
    }
}

/** A document that stands ready: Qt's device classes do not live through a failure in their constructor. */
struct Source
{
    ZyStringDevice device{document};
    ZyXMLStreamReader reader{device};
};

void expectAllGone(Watch & watch)
{
    for (auto const & element : watch) {
        EXPECT_TRUE(element.expired());
    }
    watch.clear();
}
} // namespace

TEST(AllocationFailure, LeavesNoElementWhenADocumentIsRead)
{
    Watch watch;
    watch.reserve(100);
    auto source = std::make_unique<Source>();
    unsigned const failures = failEveryAllocation(
        [&] {
            std::shared_ptr<ZyXMLStreamElementReader> const root = source->reader.nextElement();
            watch.push_back(root);
            readElement(*root, watch);
        },
        [&](bool) {
            source = std::make_unique<Source>();
            expectAllGone(watch);
        });
    EXPECT_GT(failures, 30u);
}

TEST(AllocationFailure, LosesNothingWhenAFragmentIsCut)
{
    auto source = std::make_unique<Source>();
    unsigned const failures = failEveryAllocation(
        [&] {
            source->reader.scan("limit");
            EXPECT_EQ(source->reader.toString().toStdString(),
                      "<limit name=\"one\">a text that is longer than what a string keeps in itself</limit>");
            source->reader.restart();
            EXPECT_TRUE(source->reader.nextElement());
        },
        [&](bool) { source = std::make_unique<Source>(); });
    EXPECT_GT(failures, 20u);
}

TEST(AllocationFailure, KeepsASetOfAttributesWhole)
{
    ZyXMLAttributeSet set;
    set.addAttribute("first", "a text that is longer than what a string keeps in itself");
    unsigned const failures = failEveryAllocation(
        [&] {
            set.addAttribute("second", "another text that is longer than what a string keeps in itself");
            ZyXMLAttributeSet copy(set);
            copy.removeAttribute("first");
            copy.addAttribute("FIRST", "1");
            set = copy;
        },
        [&](bool) {
            EXPECT_EQ(set.readAttribute("first").size() > 0, true);
            EXPECT_LE(set.size(), 2u);
        });
    EXPECT_GT(failures, 10u);
}
