// SPDX-License-Identifier: BSD-3-Clause
// One attribute: its two strings, and which names are refused.
#include <ZyXMLAttribute.h>

#include "ThrowsMessage.h"

#include <ZyPrint.h>
#include <ZyString.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace
{
static_assert(sizeof(ZyXMLAttribute) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_base_of_v<ZyPrivateObject, ZyXMLAttribute>);
static_assert(std::has_virtual_destructor_v<ZyXMLAttribute>);
static_assert(std::is_copy_constructible_v<ZyXMLAttribute> && std::is_copy_assignable_v<ZyXMLAttribute>);
static_assert(std::is_nothrow_move_constructible_v<ZyXMLAttribute>);

void expect(ZyXMLAttribute const & attribute, char const * name, char const * value)
{
    EXPECT_EQ(attribute.name().toStdString(), name);
    EXPECT_EQ(attribute.value().toStdString(), value);
}
} // namespace

TEST(ZyXMLAttribute, IsEmptyByDefault)
{
    expect(ZyXMLAttribute(), "", "");
}

TEST(ZyXMLAttribute, KeepsNameAndValue)
{
    expect(ZyXMLAttribute("Id", "a b\n<&"), "Id", "a b\n<&");
}

TEST(ZyXMLAttribute, TakesAnEmptyName)
{
    expect(ZyXMLAttribute("", "1"), "", "1");
}

TEST(ZyXMLAttribute, RefusesANameWithWhiteSpace)
{
    EXPECT_ZY_THROW(ZyXMLAttribute("a b", "1"), ZyInvalidXMLAttributeName, "Invalid attribute name: a b");
    for (char const * name : {" ", "a ", "\ta", "a\n", "a\rb", "\v", "\f"}) {
        EXPECT_ZY_THROW(ZyXMLAttribute(name, ""), ZyInvalidXMLAttributeName,
                        std::string("Invalid attribute name: ") + name);
    }
}

TEST(ZyXMLAttribute, ChangesNameAndValue)
{
    ZyXMLAttribute attribute("a", "1");
    attribute.setName("b");
    attribute.setValue("any text \t");
    expect(attribute, "b", "any text \t");
    attribute.setName("");
    expect(attribute, "", "any text \t");
}

TEST(ZyXMLAttribute, KeepsItsNameWhenANewOneIsRefused)
{
    ZyXMLAttribute attribute("a", "1");
    EXPECT_ZY_THROW(attribute.setName("x y"), ZyInvalidXMLAttributeName, "Invalid attribute name: x y");
    expect(attribute, "a", "1");
}

TEST(ZyXMLAttribute, CopiesBothStrings)
{
    ZyXMLAttribute original("a", "1");
    ZyXMLAttribute const copy(original);
    ZyXMLAttribute assigned("z", "9");
    assigned = original;
    original.setName("b");
    original.setValue("2");
    expect(copy, "a", "1");
    expect(assigned, "a", "1");
    ZyXMLAttribute const & same = assigned;
    assigned = same;
    expect(assigned, "a", "1");
}

TEST(ZyXMLAttribute, ReadsAsEmptyWhenMovedFromAndCanBeUsedAgain)
{
    ZyXMLAttribute original("a", "1");
    ZyXMLAttribute moved(std::move(original));
    expect(moved, "a", "1");
    expect(original, "", ""); // NOLINT(bugprone-use-after-move): what is tested
    EXPECT_TRUE(original == ZyXMLAttribute());
    expect(ZyXMLAttribute(original), "", "");
    original.setName("c");
    expect(original, "c", "");
    original = std::move(moved);
    expect(original, "a", "1");
    moved = original; // NOLINT(bugprone-use-after-move): what is tested
    expect(moved, "a", "1");
    ZyXMLAttribute const taken(std::move(moved));
    moved.setValue("2"); // NOLINT(bugprone-use-after-move): what is tested
    expect(moved, "", "2");
}

TEST(ZyXMLAttribute, Deliberate_attribute_values_ignore_case)
{
    ZyXMLAttribute const attribute("Name", "Value");
    EXPECT_TRUE(attribute == ZyXMLAttribute("NAME", "vALUE"));
    EXPECT_FALSE(attribute == ZyXMLAttribute("Name", "Values"));
    EXPECT_FALSE(attribute == ZyXMLAttribute("Names", "Value"));
    EXPECT_TRUE(ZyXMLAttribute() == ZyXMLAttribute("", ""));
}
