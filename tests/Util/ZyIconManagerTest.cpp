// SPDX-License-Identifier: BSD-3-Clause
// Tests of the icons of the process. Every test uses names of its own: the icons stay.
#include <ZyDeque.h>
#include <ZyFileType.h>
#include <ZyIcon.h>
#include <ZyIconManager.h>

#include <CoreApplication.h>
#include <GuiApplication.h>
#include <ScratchDirectory.h>

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QSize>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

static_assert(sizeof(ZyIconManager) == 2 * sizeof(void *));
static_assert(std::has_virtual_destructor_v<ZyIconManager> && !std::is_copy_constructible_v<ZyIconManager> &&
              !std::is_copy_assignable_v<ZyIconManager> && !std::is_default_constructible_v<ZyIconManager>);

namespace
{
// Asked before any test can ask for an icon, and before there is any application.
unsigned int const numberAtTheStart = ZyIconManager::NumberIcons();

/** Writes an image and gives its path. */
ZyString imageIn(ScratchDirectory const & directory, std::string const & name)
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(QColor(200, 30, 30));
    std::string const path = directory / name;
    EXPECT_TRUE(image.save(QString::fromStdString(path)));
    return ZyString(path);
}

QSize sizeOf(QIcon const & icon)
{
    return icon.availableSizes().value(0);
}
} // namespace

TEST(ZyIconManager, HasNoIconsBeforeTheFirstRequest)
{
    EXPECT_EQ(numberAtTheStart, 0u);
}

TEST(ZyIconManager, GivesOneIconForANameInAnyCase)
{
    unsigned int const before = ZyIconManager::NumberIcons();
    QIcon const & icon = ZyIconManager::Get("ZyIconManagerTest/one.png");
    EXPECT_EQ(ZyIconManager::NumberIcons(), before + 1);
    EXPECT_EQ(&ZyIconManager::Get("ZyIconManagerTest/one.png"), &icon);
    EXPECT_EQ(&ZyIconManager::Get("zyiconmanagertest/ONE.PNG"), &icon);
    EXPECT_EQ(&ZyIconManager::Get(ZyIcon(ZyString("zyICONmanagertest/one.png"))), &icon);
    EXPECT_EQ(ZyIconManager::NumberIcons(), before + 1);
    EXPECT_NE(&ZyIconManager::Get("ZyIconManagerTest/two.png"), &icon);
    EXPECT_EQ(ZyIconManager::NumberIcons(), before + 2);
}

TEST(ZyIconManager, LoadsAnImageOnce)
{
    GuiApplication const application;
    ScratchDirectory const directory;
    ZyString const path = imageIn(directory, "image.png");
    QIcon const & icon = ZyIconManager::Get(path);
    EXPECT_FALSE(icon.isNull());
    EXPECT_EQ(sizeOf(icon), QSize(3, 2));
    EXPECT_EQ(icon.pixmap(QSize(3, 2)).toImage().pixelColor(0, 0), QColor(200, 30, 30));
    imageIn(directory, "Image.png");
    EXPECT_EQ(&ZyIconManager::Get(ZyString(directory / "Image.png")), &icon);
}

TEST(ZyIconManager, KeepsReferencesGoodWhileOthersAreAdded)
{
    GuiApplication const application;
    ScratchDirectory const directory;
    ZyString const path = imageIn(directory, "stays.png");
    QIcon const & icon = ZyIconManager::Get(path);
    for (int i = 0; i < 1000; ++i) {
        ZyIconManager::Get(ZyString("ZyIconManagerTest/many") + ZyString(i));
    }
    EXPECT_EQ(sizeOf(icon), QSize(3, 2));
    EXPECT_EQ(&ZyIconManager::Get(path), &icon);
}

TEST(ZyIconManager, GivesANullIconForANameWithoutImageAndKeepsIt)
{
    GuiApplication const application;
    ScratchDirectory const directory;
    unsigned int const before = ZyIconManager::NumberIcons();
    QIcon const & missing = ZyIconManager::Get(ZyString(directory / "later.png"));
    EXPECT_TRUE(missing.isNull());
    EXPECT_TRUE(ZyIconManager::Get(ZyString(directory.write("text.png", "no image"))).isNull());
    EXPECT_TRUE(ZyIconManager::Get(ZyString(directory.write("empty.png", ""))).isNull());
    EXPECT_TRUE(ZyIconManager::Get(ZyString(directory.path().string())).isNull()) << "a directory";
    EXPECT_TRUE(ZyIconManager::Get(ZyString(std::string("\xFF\xFE\0", 3))).isNull());
    EXPECT_EQ(ZyIconManager::NumberIcons(), before + 5);
    imageIn(directory, "later.png");
    EXPECT_TRUE(ZyIconManager::Get(ZyString(directory / "later.png")).isNull())
        << "it is not looked for again";
    EXPECT_EQ(ZyIconManager::NumberIcons(), before + 5);
}

TEST(ZyIconManager, TheEmptyNameHasAnEmptyIcon)
{
    GuiApplication const application;
    EXPECT_TRUE(ZyIconManager::Get(ZyIcon()).isNull());
    EXPECT_EQ(&ZyIconManager::Get(""), &ZyIcon().icon());
    EXPECT_EQ(&ZyIconManager::Get(ZyFileType::CSV), &ZyIcon().icon()) << "a kind without icon";
}

TEST(ZyIconManager, FindsTheIconOfAKindOfFile)
{
    GuiApplication const application;
    QIcon const & icon = ZyIconManager::Get(ZyFileType::Graph);
    EXPECT_EQ(sizeOf(icon), QSize(3, 2)) << "from the resources of this program";
    EXPECT_EQ(&ZyIconManager::Get(ZyFileType(ZyFileType::Graph)), &icon);
    EXPECT_EQ(&ZyIconManager::Get(":/GraphIcon.png"), &icon);
    EXPECT_EQ(&ZyFileType(ZyFileType::Graph).icon().icon(), &icon);
}

TEST(ZyIconManager, ANumberIsANameAndAKindIsAKind)
{
    EXPECT_EQ(&ZyIconManager::Get(ZyFileType::Directory),
              &ZyIconManager::Get(":/qt-project.org/styles/commonstyle/images/dirclosed-16.png"));
    EXPECT_EQ(&ZyIconManager::Get(4), &ZyIconManager::Get("4"));
}

TEST(ZyIconManager, LoadsWhatWasAskedForTooEarlyOnceThereIsADesktop)
{
    ScratchDirectory const directory;
    ZyString const path = imageIn(directory, "early.png");
    QIcon const & icon = ZyIconManager::Get(path);
    EXPECT_TRUE(icon.isNull()) << "no application";
    {
        CoreApplication const application;
        EXPECT_TRUE(ZyIconManager::Get(path).isNull()) << "no desktop";
    }
    GuiApplication const application;
    EXPECT_EQ(&ZyIconManager::Get(path), &icon);
    EXPECT_EQ(sizeOf(icon), QSize(3, 2));
}
