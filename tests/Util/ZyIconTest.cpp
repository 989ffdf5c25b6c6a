// SPDX-License-Identifier: BSD-3-Clause
// Tests of the names of icons.
#include <ZyDeque.h>
#include <ZyIcon.h>
#include <ZyIconManager.h>

#include <QIcon>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

static_assert(sizeof(ZyIcon) == sizeof(void *) + sizeof(ZyString));
static_assert(std::has_virtual_destructor_v<ZyIcon> && std::is_copy_constructible_v<ZyIcon> &&
              std::is_copy_assignable_v<ZyIcon> && std::is_convertible_v<ZyIcon, QIcon const &>);

TEST(ZyIcon, HasTheEmptyNameByDefault)
{
    EXPECT_EQ(ZyIcon().name().toStdString(), "");
    EXPECT_TRUE(ZyIcon() == ZyIcon(ZyString()));
}

TEST(ZyIcon, KeepsTheNameAsItIs)
{
    ZyString const name(" :/Some\\icon.PNG ");
    EXPECT_EQ(ZyIcon(name).name().toStdString(), name.toStdString());
    std::string const odd("a\0b\xFF", 4);
    EXPECT_EQ(ZyIcon(ZyString(odd)).name().toStdString(), odd);
}

TEST(ZyIcon, TakesATemporaryNameOver)
{
    ZyString name("a name that is longer than what a string keeps in itself");
    char const * const characters = name.c_str();
    ZyIcon const icon(std::move(name));
    EXPECT_EQ(icon.name().c_str(), characters);
    EXPECT_TRUE(name.isEmpty());
}

TEST(ZyIcon, CopiesAreIndependent)
{
    ZyIcon icon(ZyString("a.png"));
    ZyIcon const copy(icon);
    icon = ZyIcon(ZyString("b.png"));
    EXPECT_EQ(copy.name(), "a.png");
    EXPECT_EQ(icon.name(), "b.png");
    auto const & self = icon;
    icon = self;
    EXPECT_EQ(icon.name(), "b.png");
    EXPECT_TRUE(icon != copy);
}

TEST(ZyIcon, Deliberate_icon_names_without_case)
{
    EXPECT_TRUE(ZyIcon(ZyString(":/A.png")) == ZyIcon(ZyString(":/a.PNG")));
    EXPECT_FALSE(ZyIcon(ZyString(":/A.png")) != ZyIcon(ZyString(":/a.PNG")));
    EXPECT_FALSE(ZyIcon(ZyString(":/A.png")) == ZyIcon(ZyString(":/B.png")));
}

TEST(ZyIcon, OfOneNameGiveTheSameIcon)
{
    ZyIcon const one(ZyString("ZyIconTest.png"));
    ZyIcon const other(ZyString("zyicontest.PNG"));
    EXPECT_EQ(&one.icon(), &other.icon());
    EXPECT_EQ(&static_cast<QIcon const &>(one), &one.icon());
    EXPECT_EQ(&one.icon(), &ZyIconManager::Get(one));
}

TEST(ZyIcon, CanBeKeptInAContainer)
{
    ZyDeque<ZyIcon> icons{ZyIcon(ZyString("a")), ZyIcon(ZyString("b"))};
    EXPECT_TRUE(icons.contains(ZyIcon(ZyString("B"))));
    EXPECT_FALSE(icons.addUnique(ZyIcon(ZyString("A"))));
}
