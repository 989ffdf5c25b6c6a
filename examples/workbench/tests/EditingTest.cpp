// SPDX-License-Identifier: BSD-3-Clause
// Everything that changes cells, by mouse and keys, and back again.

#include "WindowTest.h"

#include "TableActions.h"
#include "TableModel.h"

#include <ZyException.h>

#include <QAction>

namespace
{

char const * const start = "Name|Value|Unit\nR2|10|Ohm\nR1|9|Ohm\nC1|0.5|F\n";

class Editing : public WindowTest
{
protected:
    Editing()
    {
        EXPECT_TRUE(open(scratch.write("parts.csv", "Name,Value,Unit\nR2,10,Ohm\nR1,9,Ohm\nC1,0.5,F\n")));
    }

    /** The table has changed to \a after; undo and redo go between both. */
    void expectStep(std::string const & words, std::string const & after)
    {
        EXPECT_EQ(cells(), after);
        EXPECT_EQ(undoText(), "&Undo " + words);
        press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(cells(), start);
        EXPECT_FALSE(window().isWindowModified());
        EXPECT_EQ(redoText(), "&Redo " + words);
        press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(cells(), after);
        EXPECT_TRUE(window().isWindowModified());
        press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(cells(), start);
    }
};

} // namespace

TEST_F(Editing, TypingChangesACell)
{
    type(1, 1, QStringLiteral("12.5"));
    expectStep("Edit B2", "Name|Value|Unit\nR2|12.5|Ohm\nR1|9|Ohm\nC1|0.5|F\n");
}

TEST_F(Editing, TypingWhatIsThereChangesNothing)
{
    type(1, 1, QStringLiteral("10"));
    EXPECT_FALSE(window().isWindowModified());
    EXPECT_FALSE(action(QStringLiteral("Edit"), QStringLiteral("Undo"))->isEnabled());
}

TEST_F(Editing, EscapeLeavesTheCell)
{
    click(1, 1);
    press(Qt::Key_F2);
    press(Qt::Key_7);
    press(Qt::Key_Escape);
    EXPECT_EQ(cells(), start);
    EXPECT_FALSE(window().isWindowModified());
}

TEST_F(Editing, RowIsInsertedAboveAndBelow)
{
    click(1, 0);
    press(Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
    expectStep("Insert row 2", "Name|Value|Unit\n||\nR2|10|Ohm\nR1|9|Ohm\nC1|0.5|F\n");
    click(3, 0);
    press(Qt::Key_I, Qt::ControlModifier);
    expectStep("Insert row 5", "Name|Value|Unit\nR2|10|Ohm\nR1|9|Ohm\nC1|0.5|F\n||\n");
}

TEST_F(Editing, RowsAreDeletedInOneGo)
{
    select(1, 0, 2, 1);
    press(Qt::Key_D, Qt::ControlModifier);
    expectStep("Delete 2 rows", "Name|Value|Unit\nC1|0.5|F\n");
}

TEST_F(Editing, AllRowsCanBeDeleted)
{
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_D, Qt::ControlModifier);
    expectStep("Delete 4 rows", "");
}

TEST_F(Editing, SelectedCellsAreCleared)
{
    select(1, 1, 3, 2);
    press(Qt::Key_Delete);
    expectStep("Clear 6 cells", "Name|Value|Unit\nR2||\nR1||\nC1||\n");
}

TEST_F(Editing, SortingLeavesHeadingsOnTop)
{
    click(0, 0);
    press(Qt::Key_H, Qt::ControlModifier);
    std::string const headed = "Name|Value|Unit#\nR2|10|Ohm\nR1|9|Ohm\nC1|0.5|F\n";
    EXPECT_EQ(cells(), headed);
    click(2, 1);
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(cells(), "Name|Value|Unit#\nC1|0.5|F\nR1|9|Ohm\nR2|10|Ohm\n");
    EXPECT_EQ(view().currentIndex(), view().model()->index(2, 1));
    press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(cells(), "Name|Value|Unit#\nR2|10|Ohm\nR1|9|Ohm\nC1|0.5|F\n");
    choose(QStringLiteral("Edit"), QStringLiteral("Undo Sort by column B, descending"));
    choose(QStringLiteral("Edit"), QStringLiteral("Undo Sort by column B"));
    EXPECT_EQ(cells(), headed);
    choose(QStringLiteral("Edit"), QStringLiteral("Undo Make row 1 a heading"));
    EXPECT_EQ(cells(), start);
}

TEST_F(Editing, MenusDoItWithTheMouse)
{
    click(1, 0);
    choose(QStringLiteral("Table"), QStringLiteral("Delete rows"));
    EXPECT_EQ(cells(), "Name|Value|Unit\nR1|9|Ohm\nC1|0.5|F\n");
    choose(QStringLiteral("Edit"), QStringLiteral("Undo Delete row 2"));
    EXPECT_EQ(cells(), start);
    choose(QStringLiteral("Edit"), QStringLiteral("Redo Delete row 2"));
    EXPECT_EQ(cells(), "Name|Value|Unit\nR1|9|Ohm\nC1|0.5|F\n");
}

TEST_F(Editing, UndoneTableIsTheFormerOneToTheRowObject)
{
    auto const & model = static_cast<TableModel const &>(*view().model());
    Rows const before = model.table();
    type(2, 2, QStringLiteral("kOhm"));
    click(0, 1);
    press(Qt::Key_L, Qt::ControlModifier);
    select(0, 0, 2, 2);
    press(Qt::Key_Delete);
    press(Qt::Key_D, Qt::ControlModifier);
    press(Qt::Key_I, Qt::ControlModifier);
    for (int i = 0; i < 5; ++i) {
        press(Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_TRUE(model.table() == before);
}

TEST_F(Editing, SortingByStackedCellsIsRefused)
{
    ASSERT_TRUE(open(scratch.write(
        "tall.zyt.xml",
        "<DataTable><Rows>"
        "<Row><Item><Value><Integer>2</Integer></Value><Value><Integer>1</Integer></Value></Item></Row>"
        "<Row><Item><Value><Integer>0</Integer></Value></Item></Row></Rows></DataTable>")));
    std::string const before = cells();
    EXPECT_EQ(before, "2\n1\n0\n");
    click(0, 0);
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(cells(), before);
    EXPECT_EQ(status(), "Cannot sort on column that has multiple values per cell");
    press(Qt::Key_F2); // nor can a line of text stand for two values
    press(Qt::Key_9);
    press(Qt::Key_Return);
    EXPECT_EQ(cells(), before);
    EXPECT_FALSE(window().isWindowModified());
}

TEST_F(Editing, GestureThatThrowsHalfWayLeavesTheTableAsBefore)
{
    class Failing : public ZyAction
    {
    public:
        void performAction() override { throw ZyUserCancelledException("half-way"); }
        void performUndo() override {}
    };
    window().attempt([](Document & document) {
        ZyUniquePtr<Gesture> gesture(new Gesture("Half"));
        RowPtr const row = withValue(*document.model().row(0), 0, ZyVariant("new"));
        gesture->addStep(exchangeRowAction(document.model(), 0, row));
        gesture->addStep(removeRowsAction(document.model(), 1, 2));
        gesture->addStep(ZyUniquePtr<ZyAction>(new Failing));
        document.perform(std::move(gesture));
    });
    EXPECT_EQ(cells(), start);
    EXPECT_EQ(status(), "half-way");
    EXPECT_FALSE(window().isWindowModified());
    EXPECT_FALSE(action(QStringLiteral("Edit"), QStringLiteral("Undo"))->isEnabled());
}
