// SPDX-License-Identifier: BSD-3-Clause
// Tests of sets of named values.
#include <ZyException.h>
#include <ZyProperties.h>

#include <ThrowsMessage.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <locale>
#include <string>
#include <type_traits>
#include <vector>

static_assert(sizeof(ZyProperties) == 2 * sizeof(void *), "a table pointer and the state");
static_assert(std::has_virtual_destructor_v<ZyProperties> && std::is_copy_assignable_v<ZyProperties>);
static_assert(std::is_same_v<decltype(std::declval<ZyProperties &>().begin()), ZyIterator<ZyProperty>>);
static_assert(
    std::is_same_v<decltype(std::declval<ZyProperties const &>().end()), ZyIterator<ZyProperty const>>);

namespace
{
std::string namesOf(ZyProperties const & properties)
{
    std::string names;
    for (ZyProperty const & property : properties) {
        names += property.name().toStdString() + " ";
    }
    return names;
}

/** Folds "o" to "0". */
class Digits : public std::ctype<char>
{
protected:
    char do_tolower(char c) const override
    {
        return c == 'o' || c == 'O' ? '0' : std::ctype<char>::do_tolower(c);
    }
};
} // namespace

TEST(ZyProperties, StartsEmpty)
{
    ZyProperties const properties;
    EXPECT_EQ(properties.size(), 0u);
    EXPECT_TRUE(properties.get("a").expired());
    EXPECT_TRUE(properties.begin() == properties.end());
}

TEST(ZyProperties, AddKeepsTheOrderOfComing)
{
    ZyProperties properties;
    properties.add("b", 1);
    properties.add(ZyProperty("a", 2));
    properties << ZyProperty("c", 3) << ZyProperty("A", 4);
    EXPECT_EQ(namesOf(properties), "b A c ");
    EXPECT_EQ(properties.value("a").asInteger(), 4);
}

TEST(ZyProperties, Deliberate_last_spelling_stays)
{
    ZyProperties properties{ZyProperty("Gain", 1), ZyProperty("Unit", "dB")};
    ZyWeakPtr<ZyProperty> const before = properties.get("gain");
    ZyWeakPtr<ZyProperty> const added = properties.add("GAIN", 2.5);
    EXPECT_EQ(properties.size(), 2u);
    EXPECT_EQ(added.lock()->name().toStdString(), "GAIN");
    EXPECT_EQ(properties.value("gain").asDouble(), 2.5);
    EXPECT_EQ(namesOf(properties), "GAIN Unit ");
    EXPECT_EQ(before.lock().get(), added.lock().get());
}

TEST(ZyProperties, AddCopiesTheProperty)
{
    ZyProperty property("a", 1);
    ZyProperties properties(property);
    property.setValue(2);
    EXPECT_EQ(properties.value("a").asInteger(), 1);
}

TEST(ZyProperties, AddMayTakeAnElementOfTheSet)
{
    ZyProperties properties{ZyProperty("a", 1), ZyProperty("b", 2)};
    properties.add(properties.getReference("a"));
    EXPECT_EQ(namesOf(properties), "a b ");
    EXPECT_EQ(properties.value("a").asInteger(), 1);
}

TEST(ZyProperties, ALaterElementOfAListReplacesAnEarlierOne)
{
    ZyProperties const properties{ZyProperty("a", 1), ZyProperty("b", 2), ZyProperty("A", 3)};
    EXPECT_EQ(namesOf(properties), "A b ");
    EXPECT_EQ(properties.value("a").asInteger(), 3);
    std::initializer_list<ZyProperty> const list = {ZyProperty("x"), ZyProperty("X", 1)};
    EXPECT_EQ(namesOf(ZyProperties(list)), "X ");
    ZyProperties const braces = {{"p", 1}, {"q", "text"}};
    EXPECT_EQ(namesOf(braces), "p q ");
}

TEST(ZyProperties, Deliberate_properties_share)
{
    ZyProperties first{ZyProperty("a", 1), ZyProperty("b", 2)};
    ZyProperties copy(first);
    copy.add("A", 5);
    EXPECT_EQ(first.value("a").asInteger(), 5);
    EXPECT_EQ(namesOf(first), "A b ");
    copy.add("c", 3);
    EXPECT_TRUE(first.get("c").expired());
    EXPECT_EQ(first.size(), 2u);
    first.get("b").lock()->setValue(7);
    EXPECT_EQ(copy.value("b").asInteger(), 7);
    copy.clear();
    EXPECT_EQ(copy.size(), 0u);
    EXPECT_EQ(first.size(), 2u);
}

TEST(ZyProperties, Deliberate_properties_share_when_assigned)
{
    ZyProperties const first{ZyProperty("a", 1)};
    ZyProperties other{ZyProperty("z", 9)};
    ZyWeakPtr<ZyProperty> const gone = other.get("z");
    other = first;
    EXPECT_TRUE(gone.expired());
    EXPECT_EQ(other.get("a").lock().get(), first.get("a").lock().get());
    ZyProperties const & itself = other;
    other = itself;
    EXPECT_EQ(namesOf(other), "a ");
}

TEST(ZyProperties, OrderPlaysNoPartInEquality)
{
    ZyProperties const a{ZyProperty("x", 1), ZyProperty("y", "text")};
    ZyProperties const b{ZyProperty("Y", "TEXT"), ZyProperty("X", 1)};
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a != b);
}

TEST(ZyProperties, EqualityLooksAtSizesNamesAndValues)
{
    ZyProperties const a{ZyProperty("x", 1), ZyProperty("y", 2)};
    EXPECT_FALSE(a == ZyProperties(ZyProperty("x", 1)));
    EXPECT_FALSE(a == (ZyProperties{ZyProperty("x", 1), ZyProperty("z", 2)}));
    EXPECT_FALSE(a == (ZyProperties{ZyProperty("x", 1), ZyProperty("y", 2.0)}));
    EXPECT_TRUE(a != ZyProperties());
    EXPECT_TRUE(a == a);
}

TEST(ZyProperties, EmptySetsAreEqualAndHaveNoValue)
{
    EXPECT_TRUE(ZyProperties() == ZyProperties());
    EXPECT_ZY_THROW(ZyProperties().value("a"), ZyNotFoundException, "Item not found: a");
}

TEST(ZyProperties, AMissingNameIsNotFound)
{
    ZyProperties const properties{ZyProperty("a", 1)};
    EXPECT_ZY_THROW(properties.value("The Name"), ZyNotFoundException, "Item not found: The Name");
    EXPECT_ZY_THROW(properties.getReference("aa"), ZyNotFoundException, "Item not found: aa");
    EXPECT_ZY_THROW(properties.getReference(""), ZyNotFoundException, "Item not found: ");
    EXPECT_NO_THROW(static_cast<void>(properties.get("b")));
}

TEST(ZyProperties, GetsTheElementItself)
{
    ZyProperties properties{ZyProperty("a", 1)};
    properties.get("A").lock()->setValue("changed");
    EXPECT_EQ(properties.getReference("a").value().asString().toStdString(), "changed");
    EXPECT_EQ(&properties.getReference("a").value(), &properties.value("a"));
}

TEST(ZyProperties, PointersWatchTheElement)
{
    ZyProperties properties;
    ZyWeakPtr<ZyProperty> const a = properties.add("a", 1);
    for (int i = 0; i < 1000; ++i) {
        properties.add(ZyString("n") + ZyString(i), i);
    }
    EXPECT_EQ(a.lock()->value().asInteger(), 1);
    properties.clear();
    EXPECT_TRUE(a.expired());
}

TEST(ZyProperties, TheFirstOfNamesThatBecameEqualWins)
{
    ZyProperties properties{ZyProperty("a", 1), ZyProperty("b", 2)};
    properties.get("b").lock()->setName("A");
    EXPECT_EQ(properties.value("a").asInteger(), 1);
    EXPECT_EQ(properties.size(), 2u);
}

TEST(ZyProperties, FindsNamesThatWereChangedFromOutside)
{
    ZyProperties properties{ZyProperty("a", 1), ZyProperty("b", 2)};
    ZyProperties const copy(properties);
    ZyString const longName("a name that is longer than any text inside of a string");
    properties.get("a").lock()->setName(longName);
    EXPECT_TRUE(properties.get("a").expired());
    EXPECT_EQ(properties.value(longName).asInteger(), 1);
    EXPECT_EQ(copy.value(longName).asInteger(), 1);
    properties.get("b").lock()->setName(ZyString(std::string(100, 'x')));
    EXPECT_EQ(copy.value(ZyString(std::string(100, 'X'))).asInteger(), 2);
    *properties.get(longName).lock() = ZyProperty("c", 3);
    EXPECT_EQ(properties.value("C").asInteger(), 3);
}

TEST(ZyProperties, FindsNamesOfAnyBytes)
{
    ZyString const binary(std::string("n\0a", 3));
    ZyProperties properties{ZyProperty("n", 1)};
    properties.add(binary, 2);
    properties.add("", 3);
    properties.add("\xC3\x84", 4);
    EXPECT_EQ(properties.value(ZyString(std::string("N\0A", 3))).asInteger(), 2);
    EXPECT_EQ(properties.value("N").asInteger(), 1);
    EXPECT_EQ(properties.value("").asInteger(), 3);
    EXPECT_EQ(properties.value("\xC3\x84").asInteger(), 4);
    EXPECT_TRUE(properties.get("\xC3\xA4").expired()) << "bytes from 128 on have no case here";
}

TEST(ZyProperties, LooksUpAsNamesCompare)
{
    ZyProperties properties{ZyProperty("zoo", 1)};
    EXPECT_TRUE(properties.get("z00").expired());
    std::locale const before = std::locale::global(std::locale(std::locale::classic(), new Digits));
    EXPECT_FALSE(properties.get("Z00").expired());
    EXPECT_TRUE(ZyProperty("zoo").equalName(ZyProperty("Z00")));
    std::locale::global(before);
}

TEST(ZyProperties, IteratesThePropertiesThemselves)
{
    ZyProperties properties{ZyProperty("a", 1), ZyProperty("b", 2)};
    for (ZyProperty & property : properties) {
        property.setValue(property.value().asInteger() * 10);
    }
    EXPECT_EQ(properties.value("b").asInteger(), 20);
    ZyIterator<ZyProperty> position = properties.begin();
    EXPECT_EQ(&*position, properties.get("a").lock().get());
    EXPECT_EQ(position->name().toStdString(), "a");
    ZyIterator<ZyProperty> const before = position++;
    EXPECT_TRUE(before == properties.begin());
    EXPECT_EQ(position->name().toStdString(), "b");
    EXPECT_TRUE(++position == properties.end());
    ZyProperties const & read = properties;
    EXPECT_EQ(std::count_if(read.begin(), read.end(), [](ZyProperty const & p) { return p.name() == "B"; }),
              1);
}

TEST(ZyProperties, IteratorsReportMisuse)
{
    ZyProperties const properties{ZyProperty("a", 1)};
    EXPECT_ZY_THROW(*properties.end(), ZyInvalidCallException, "Iterator cannot be dereferenced when at end");
    EXPECT_ZY_THROW(properties.end()->name(), ZyInvalidCallException,
                    "Iterator cannot be dereferenced when at end");
    EXPECT_ZY_THROW(*ZyIterator<ZyProperty>(), ZyNullPointerException, "Iterator not assigned data");
}

TEST(ZyProperties, VisitsInOrder)
{
    ZyProperties properties{ZyProperty("a", 1), ZyProperty("b", 2)};
    properties.forEach([](ZyProperty & property) { property.setName(property.name() + "!"); });
    std::string names;
    ZyProperties const & read = properties;
    read.forEach([&](ZyProperty const & property) { names += property.name().toStdString(); });
    EXPECT_EQ(names, "a!b!");
    ZyProperties().forEach(std::function<void(ZyProperty &)>());
}

TEST(ZyProperties, AVisitMayChangeTheSet)
{
    ZyProperties properties{ZyProperty("a", 1)};
    properties.forEach([&](ZyProperty & property) {
        if (properties.size() < 100) {
            properties.add(property.name() + "x", 1);
        }
    });
    EXPECT_EQ(properties.size(), 100u);
    std::string last;
    properties.forEach([&](ZyProperty & property) {
        properties.clear();
        last = property.name().toStdString();
    });
    EXPECT_EQ(last, "a");
}

TEST(ZyProperties, HoldsTwoThousandNames)
{
    ZyProperties properties;
    for (int i = 0; i < 2000; ++i) {
        properties.add(ZyString("Option.") + ZyString(i), i);
    }
    EXPECT_EQ(properties.size(), 2000u);
    for (int i = 0; i < 2000; i += 37) {
        EXPECT_EQ(properties.value(ZyString("OPTION.") + ZyString(i)).asInteger(), i);
    }
}
