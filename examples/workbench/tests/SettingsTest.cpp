// SPDX-License-Identifier: BSD-3-Clause
// What the program remembers.

#include "WindowTest.h"

#include "Settings.h"

#include <QAction>
#include <QDockWidget>
#include <QMenu>

namespace
{

class Remembering : public WindowTest
{
protected:
    QStringList recent() const
    {
        QStringList texts;
        for (QAction const * const entry :
             action(QStringLiteral("File"), QStringLiteral("Open recent"))->menu()->actions()) {
            texts << entry->text();
        }
        return texts;
    }
};

} // namespace

TEST_F(Remembering, RecentFilesComeBackNewestFirst)
{
    EXPECT_TRUE(recent().isEmpty());
    std::string const a = scratch.write("a.csv", "a\n");
    std::string const b = scratch.write("b.csv", "b\n");
    EXPECT_TRUE(open(a));
    EXPECT_TRUE(open(b));
    EXPECT_TRUE(open(a));
    openWindow();
    EXPECT_EQ(recent(), QStringList({QString::fromStdString(a), QString::fromStdString(b)}));
    action(QStringLiteral("File"), QStringLiteral("Open recent"))->menu()->actions().last()->trigger();
    EXPECT_EQ(cells(), "b\n");
}

TEST_F(Remembering, EightFilesAreKept)
{
    for (int i = 0; i < 10; ++i) {
        EXPECT_TRUE(open(scratch.write("f" + std::to_string(i) + ".csv", "x\n")));
    }
    EXPECT_EQ(recent().size(), 8);
    EXPECT_TRUE(recent().first().endsWith(QStringLiteral("f9.csv")));
}

TEST_F(Remembering, WindowComesBackAsItWas)
{
    window().resize(901, 603);
    auto * const kinds = window().findChild<QDockWidget *>(QStringLiteral("kindsDock"));
    kinds->hide();
    window().close();
    openWindow();
    EXPECT_EQ(window().size(), QSize(901, 603));
    EXPECT_FALSE(window().findChild<QDockWidget *>(QStringLiteral("kindsDock"))->isVisible());
}

TEST_F(Remembering, DamagedSettingsAreNone)
{
    std::string const file = scratch.write("damaged", "\x01[[[\nno key\nGeometry=???");
    Settings::UseFile(QString::fromStdString(file));
    openWindow();
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(recent().isEmpty());
}
