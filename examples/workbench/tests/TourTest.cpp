// SPDX-License-Identifier: BSD-3-Clause
// A working day in one piece, with pictures for the folder that ZYWORKBENCH_PICTURES names.

#include "WindowTest.h"

#include <ZyCommandShell.h>
#include <ZyFileType.h>
#include <ZyIconManager.h>
#include <ZyString.h>

#include <QFileDialog>
#include <QListWidget>
#include <QTest>

namespace
{

class Tour : public WindowTest
{
protected:
    std::string const parts =
        scratch.write("filter.csv", "Part,Value,Unit,Tolerance,Where used\nR1,10000,Ohm,0.01,input\n"
                                    "R2,12000,Ohm,0.01,input\nC1,4.7e-08,F,0.05,feedback\n"
                                    "C2,1e-08,F,0.05,\"output, ground\"\nL1,0.0022,H,0.1,trap\n"
                                    "R3,470,Ohm,0.05,load\nC3,3.3e-09,F,0.05,trap\n");
};

} // namespace

TEST_F(Tour, EveryKindIsListedWithItsIcon)
{
    auto const * const kinds = window().findChild<QListWidget *>(QStringLiteral("kinds"));
    ASSERT_EQ(kinds->count(), 22);
    int images = 0;
    for (int number = 0; number < kinds->count(); ++number) {
        ZyFileType const kind(static_cast<ZyFileType::Type>(number));
        EXPECT_EQ(kinds->item(number)->text(), kind.name().toQString());
        EXPECT_FALSE(kinds->item(number)->icon().isNull());
        images += ZyIconManager::Get(kind).availableSizes().isEmpty() ? 0 : 1;
    }
    EXPECT_EQ(images, 13); // twelve of our own, and the folder of the desktop
}

TEST_F(Tour, KindOfTheListIsWhatTheDialogShows)
{
    auto * const kinds = window().findChild<QListWidget *>(QStringLiteral("kinds"));
    kinds->setCurrentRow(ZyFileType::Graph);
    QString filter;
    EXPECT_TRUE(inDialog(
        [kinds] {
            kinds->setFocus();
            QTest::keyClick(kinds, Qt::Key_Return);
        },
        [&filter](QDialog * dialog) {
            filter = static_cast<QFileDialog *>(dialog)->selectedNameFilter();
            QTest::keyClick(dialog, Qt::Key_Escape);
        }));
    EXPECT_EQ(filter, QStringLiteral("Graph (*.zygpx *.zygph)"));
}

TEST_F(Tour, FromOpeningToExporting)
{
    EXPECT_TRUE(nameFile([this] { press(Qt::Key_O, Qt::ControlModifier); }, parts));
    click(0, 0);
    press(Qt::Key_H, Qt::ControlModifier);
    picture(QStringLiteral("1-opened"));

    type(5, 1, QStringLiteral("0.0033"));
    click(1, 1);
    press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(cell(1, 0), "R2");
    select(1, 0, 3, 2);
    press(Qt::Key_C, Qt::ControlModifier);
    picture(QStringLiteral("2-copied"));
    click(7, 0);
    press(Qt::Key_I, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(undoText(), "&Undo Paste 3 × 3 cells");
    EXPECT_EQ(cell(7, 0), "C3");
    EXPECT_EQ(cell(8, 0), "R2"); // in the row that has been inserted

    EXPECT_TRUE(nameFile([this] { press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier); },
                         scratch / "filter.zyt.xml"));
    EXPECT_TRUE(nameFile([this] { press(Qt::Key_E, Qt::ControlModifier); }, scratch / "filter.xlsx"));
    EXPECT_TRUE(waitUntil([this] { return logHas("Exported "); }));
    ZyCommandShell::RunCommand("fault", true);
    EXPECT_TRUE(waitUntil([this] { return logHas("An access violation occurred at "); }));
    click(2, 1);
    picture(QStringLiteral("3-exported"));

    std::string const damaged = scratch.write("damaged.csv", "a\n\"b\n");
    EXPECT_FALSE(open(damaged));
    picture(QStringLiteral("4-damaged"));
    EXPECT_EQ(title(), "filter.zyt.xml[*] - zyworkbench");
}
