// SPDX-License-Identifier: BSD-3-Clause
// Tests of named values.
#include <ZyProperty.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

static_assert(std::has_virtual_destructor_v<ZyProperty> && std::is_copy_assignable_v<ZyProperty>);
static_assert(sizeof(ZyProperty) == sizeof(void *) + sizeof(ZyString) + sizeof(ZyVariant));

TEST(ZyProperty, DefaultHasNoNameAndNoValue)
{
    ZyProperty const property;
    EXPECT_EQ(property.name().size(), 0u);
    EXPECT_EQ(property.value().type(), ZyVariant::Null);
}

TEST(ZyProperty, NameAloneLeavesTheValueUnset)
{
    ZyProperty const property("Gain");
    EXPECT_EQ(property.name().toStdString(), "Gain");
    EXPECT_EQ(property.value().type(), ZyVariant::Null);
}

TEST(ZyProperty, NamesAloneAreEqualWhateverTheirCase)
{
    EXPECT_TRUE(ZyProperty("Gain") == ZyProperty("gAIN"));
    EXPECT_FALSE(ZyProperty("Gain") != ZyProperty("gAIN"));
    EXPECT_FALSE(ZyProperty("Gain") == ZyProperty("Gains"));
}

TEST(ZyProperty, CopiesAndTakesOver)
{
    ZyString name("Gain");
    ZyVariant value("text");
    ZyProperty const copy(name, value);
    EXPECT_EQ(name.toStdString(), "Gain");
    EXPECT_TRUE(value == ZyVariant("text"));
    ZyProperty const taken(std::move(name), std::move(value));
    EXPECT_TRUE(name.isEmpty());
    EXPECT_EQ(value.type(), ZyVariant::Null);
    EXPECT_TRUE(copy == taken);
}

TEST(ZyProperty, MovedFromIsEmpty)
{
    ZyProperty property("Gain", 5);
    ZyProperty const moved(std::move(property));
    EXPECT_EQ(moved.value().asInteger(), 5);
    EXPECT_TRUE(property.name().isEmpty());
    EXPECT_EQ(property.value().type(), ZyVariant::Null);
    property = moved;
    EXPECT_TRUE(property == moved);
}

TEST(ZyProperty, Sets)
{
    ZyProperty property;
    ZyString name("A");
    property.setName(name);
    EXPECT_EQ(property.name().toStdString(), "A");
    property.setName(ZyString("B"));
    EXPECT_EQ(property.name().toStdString(), "B");
    ZyVariant const value(1.5);
    property.setValue(value);
    EXPECT_EQ(property.value().asDouble(), 1.5);
    property.setValue(ZyVariant("x"));
    EXPECT_EQ(property.value().asString().toStdString(), "x");
    property.setName(property.name());
    property.setValue(property.value());
    EXPECT_TRUE(property == ZyProperty("B", "x"));
}

TEST(ZyProperty, EqualityIsThatOfNameAndValue)
{
    ZyProperty const property("Gain", 5);
    EXPECT_TRUE(property.equalName(ZyProperty("GAIN", 6)));
    EXPECT_FALSE(property.equalName(ZyProperty("Loss", 5)));
    EXPECT_TRUE(property.equalValue(ZyProperty("Loss", 5)));
    EXPECT_FALSE(property.equalValue(ZyProperty("Gain", 5.0))) << "another type";
    EXPECT_TRUE(property == ZyProperty("gain", 5));
    EXPECT_FALSE(property == ZyProperty("gain", 6));
    EXPECT_FALSE(property == ZyProperty("loss", 5));
    EXPECT_TRUE(ZyProperty("t", "Text") == ZyProperty("t", "TEXT")) << "text without case";
}

TEST(ZyProperty, CopiesDeeply)
{
    ZyProperty property("a", 1);
    ZyProperty copy(property);
    property.setValue(2);
    EXPECT_EQ(copy.value().asInteger(), 1);
    copy = property;
    EXPECT_EQ(copy.value().asInteger(), 2);
    ZyProperty const & itself = copy;
    copy = itself;
    EXPECT_TRUE(copy == property);
}

TEST(ZyProperty, KeepsAnyBytesInItsName)
{
    std::string const bytes("\xFF\0b", 3);
    ZyProperty const property((ZyString(bytes)));
    EXPECT_EQ(property.name().toStdString(), bytes);
    EXPECT_FALSE(property.equalName(ZyProperty("\xFF")));
}
