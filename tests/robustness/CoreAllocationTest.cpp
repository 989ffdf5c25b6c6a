// SPDX-License-Identifier: BSD-3-Clause
// Strings, containers and values when memory ends: an operation is finished or has not begun.
#include "AllocationFault.h"

#include <ZyBase64Converter.h>
#include <ZyByteArray.h>
#include <ZyCaseSensitiveString.h>
#include <ZyDeque.h>
#include <ZyFilePath.h>
#include <ZyList.h>
#include <ZyMatrix.h>
#include <ZySharedPtr.h>
#include <ZyString.h>
#include <ZyStringView.h>
#include <ZyUniquePtr.h>
#include <ZyVector.h>

#include <QString>

#include <functional>
#include <string>

namespace
{
// Longer than any string keeps without an allocation.
constexpr char longText[] =
    "a text that is longer than what a string keeps in itself, and has a comma, and another";
constexpr char otherText[] =
    "another text that is longer than what a string keeps in itself, for good measure";

/** Fails every allocation of a change of a string; each time it is as before or as changed. */
unsigned failChange(std::function<void(ZyString &)> const & change)
{
    ZyString changed(longText);
    change(changed);
    ZyString const wanted = changed;
    ZyString const original(longText);
    ZyString text(longText);
    return failEveryAllocation([&] { change(text); },
                               [&](bool returned) {
                                   EXPECT_EQ(text.toStdString(),
                                             returned ? wanted.toStdString() : original.toStdString());
                                   text = original;
                               });
}

/** Fails every allocation of what makes a value; there is nothing to look at behind it but that all is well.
 */
unsigned failMaking(std::function<void()> const & make)
{
    return failEveryAllocation(make, [](bool) {});
}
} // namespace

TEST(AllocationFailure, LeavesAStringAsItWas)
{
    ZyString const other(otherText);
    EXPECT_GT(failChange([&](ZyString & text) { text.append(other); }), 0u);
    EXPECT_GT(failChange([&](ZyString & text) { text += otherText; }), 0u);
    EXPECT_GT(failChange([&](ZyString & text) { text = other + text; }), 0u);
    EXPECT_GT(failChange([&](ZyString & text) { text.resize(500, 'x'); }), 0u);
    EXPECT_GT(failChange([&](ZyString & text) { text.spaceCapitals(); }), 0u);
    EXPECT_GT(
        failChange([&](ZyString & text) { text.replace(",", other, ZyComparableString::CaseInsensitive); }),
        0u);
    EXPECT_GT(failChange([&](ZyString & text) {
                  text.replace(ZyString("text"), other, ZyComparableString::CaseSensitive);
              }),
              0u);
    EXPECT_GT(failChange([&](ZyString & text) { text = (other + other + other).c_str(); }), 0u);
}

TEST(AllocationFailure, LosesNothingWhenAStringIsMade)
{
    ZyString const text(longText);
    EXPECT_EQ(failMaking([&] { ZyString const made(longText); }), 2u);
    EXPECT_EQ(failMaking([&] { ZyString const made(text); }), 2u);
    EXPECT_EQ(failMaking([&] { ZyString const made(5); }), 1u);
    EXPECT_GT(failMaking([&] { ZyString const made(QString::fromLatin1(longText)); }), 0u);
    EXPECT_GT(failMaking([&] { ZyString const made = text.trimmed().toString(); }), 0u);
    EXPECT_GT(failMaking([&] {
                  ZyString const made = text.replaced("a", "bcd", ZyComparableString::CaseSensitive);
              }),
              0u);
    EXPECT_GT(failMaking([&] { text.toWString(); }), 0u);
    EXPECT_GT(failMaking([&] { text.toYString(); }), 0u);
    EXPECT_GT(failMaking([&] { text.tokenize(","); }), 0u);
    EXPECT_GT(failMaking([&] { ZyCaseSensitiveString const made(text); }), 0u);
    EXPECT_GT(failMaking([&] { ZyString::ToString(1.5); }), 0u);
    EXPECT_GT(failMaking([&] { ZyString::Base64(1.5); }), 0u);
    EXPECT_GT(failMaking([&] { ZyBase64Converter().encodeString(text); }), 0u);
    EXPECT_GT(failMaking([&] { ZyBase64ConverterCore().decode("QUJDREVGR0hJSktMTU5PUFFSU1RVVldYWVo="); }),
              0u);
}

TEST(AllocationFailure, MovedStringsStayUsable)
{
    failEveryAllocation(
        [] {
            ZyString from(longText);
            ZyString to(std::move(from));
            from = otherText;
            from = std::move(to);
        },
        [](bool) {});
    // A move that fails has taken nothing.
    ZyString from(longText);
    failEveryAllocation([&] { ZyString const to(std::move(from)); },
                        [&](bool returned) {
                            EXPECT_EQ(from.toStdString(), returned ? "" : longText);
                            from = longText;
                        });
}

TEST(AllocationFailure, ComparisonsOfOurOwnTextsNeedNoMemory)
{
    ZyString const a(longText);
    ZyString const b(otherText);
    ZyStringView const view(a);
    EXPECT_EQ(failMaking([&] {
                  EXPECT_FALSE(a == b);
                  EXPECT_TRUE(a < b);
                  EXPECT_TRUE(a == view);
                  EXPECT_TRUE(a == longText);
                  EXPECT_FALSE(a.contains(b));
                  EXPECT_FALSE(a.isDouble());
                  EXPECT_FALSE(a.isInteger());
                  EXPECT_FALSE(a.startsWith(b));
              }),
              0u);
}

TEST(AllocationFailure, ComposingAMessageLetsTheFailureThrough)
{
    EXPECT_GT(failMaking([] { ZyNotFoundException const thrown(longText); }), 0u);
    EXPECT_GT(failMaking([] { ZyIndexOutOfBoundsException const thrown(3u, 2u); }), 0u);
    ZyNotFoundException const made(longText);
    EXPECT_GT(failMaking([&] { ZyNotFoundException const copy(made); }), 0u);
}

template <class Container>
class ContainerAllocationFailure : public ::testing::Test
{
public:
    static Container filled()
    {
        Container made;
        for (int i = 0; i < 20; ++i) {
            made.add(ZyString(longText) + ZyString(i));
        }
        return made;
    }
};

using Containers = ::testing::Types<ZyDeque<ZyString>, ZyVector<ZyString>, ZyList<ZyString>>;
TYPED_TEST_SUITE(ContainerAllocationFailure, Containers, );

TYPED_TEST(ContainerAllocationFailure, LeavesAContainerAsItWas)
{
    TypeParam const original = this->filled();
    TypeParam container = original;
    auto restore = [&](unsigned added) {
        return [&, added](bool returned) {
            EXPECT_EQ(container.size(), original.size() + (returned ? added : 0));
            EXPECT_TRUE(container.contains(ZyString(longText) + ZyString(19)));
            container = original;
        };
    };
    ZyString const item(otherText);
    EXPECT_GT(failEveryAllocation([&] { container.add(item); }, restore(1)), 0u);
    EXPECT_GT(failEveryAllocation([&] { container.add(ZyString(item)); }, restore(1)), 0u);
    EXPECT_GT(failEveryAllocation([&] { container.addUnique(item); }, restore(1)), 0u);
}

TYPED_TEST(ContainerAllocationFailure, LosesNothingWhenAContainerIsCopied)
{
    TypeParam const original = this->filled();
    EXPECT_GT(failMaking([&] { TypeParam const copy(original); }), 20u);
    TypeParam target;
    EXPECT_GT(failEveryAllocation([&] { target = original; }, [&](bool) { target.clear(); }), 20u);
}

TYPED_TEST(ContainerAllocationFailure, WalksAndSearches)
{
    TypeParam const original = this->filled();
    EXPECT_GT(failMaking([&] {
                  unsigned count = 0;
                  for (ZyString const & item : original) {
                      count += item.isEmpty() ? 0 : 1;
                  }
                  EXPECT_EQ(count, original.size());
              }),
              0u);
    EXPECT_GT(failMaking([&] { original.find([](ZyString const & item) { return item.endsWith("7"); }); }),
              0u);
}

TEST(AllocationFailure, LosesNothingWhenAMatrixIsMade)
{
    EXPECT_GT(failMaking([] { ZyMatrix<ZyString> const matrix(3, 4, ZyString(longText)); }), 12u);
}

TEST(AllocationFailure, LosesNothingWhenAPathIsMade)
{
    EXPECT_GT(failMaking([] {
                  ZyFilePath const path("/one directory/another one//and a file with a long name.txt");
              }),
              0u);
    ZyFilePath const base("C:/one directory/another one/");
    EXPECT_GT(failMaking([&] { base.appended(ZyFilePath("and a file with a long name.txt")); }), 0u);
    EXPECT_GT(failMaking([&] { base.absolute(ZyFilePath("../and a file with a long name.txt")); }), 0u);
}

TEST(AllocationFailure, AnObjectThatCannotBeSharedStaysWithItsOwner)
{
    ZyUniquePtr<ZyString> owner(new ZyString(longText));
    ZySharedPtr<ZyString> shared;
    EXPECT_EQ(failEveryAllocation([&] { shared = ZySharedPtr<ZyString>(std::move(owner)); },
                                  [&](bool returned) {
                                      EXPECT_EQ(shared ? true : false, returned);
                                      EXPECT_EQ(owner ? true : false, !returned);
                                  }),
              1u);
    EXPECT_EQ(shared->toStdString(), longText);
}
