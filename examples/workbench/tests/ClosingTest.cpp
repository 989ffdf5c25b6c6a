// SPDX-License-Identifier: BSD-3-Clause
// Closing asks.

#include "WindowTest.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace
{

class Closing : public WindowTest
{
protected:
    Closing() { EXPECT_TRUE(open(scratch.write("a.csv", "old,1\n"))); }

    /** Presses the key of a button in the question that closing asks. */
    bool answer(QMessageBox::StandardButton button)
    {
        return inDialog([this] { press(Qt::Key_Q, Qt::ControlModifier); },
                        [button](QDialog * dialog) {
                            QPushButton * const choice = qobject_cast<QPushButton *>(
                                static_cast<QMessageBox *>(dialog)->button(button));
                            QTest::mouseClick(choice, Qt::LeftButton);
                        });
    }
};

} // namespace

TEST_F(Closing, UnchangedWindowJustCloses)
{
    EXPECT_FALSE(answer(QMessageBox::Cancel));
    EXPECT_FALSE(window().isVisible());
}

TEST_F(Closing, ChangedWindowStaysWhenTheUserCancels)
{
    type(0, 0, QStringLiteral("new"));
    EXPECT_TRUE(answer(QMessageBox::Cancel));
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(cell(0, 0), "new");
    EXPECT_EQ(scratch.read("a.csv"), "old,1\n");
}

TEST_F(Closing, ChangesAreDiscardedWhenTheUserSaysSo)
{
    type(0, 0, QStringLiteral("new"));
    EXPECT_TRUE(answer(QMessageBox::Discard));
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(scratch.read("a.csv"), "old,1\n");
}

TEST_F(Closing, ChangesAreSavedWhenTheUserSaysSo)
{
    type(0, 0, QStringLiteral("new"));
    EXPECT_TRUE(answer(QMessageBox::Save));
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(scratch.read("a.csv"), "new,1\r\n");
}

TEST_F(Closing, OpeningAnotherFileAsksToo)
{
    type(0, 0, QStringLiteral("new"));
    std::string const other = scratch.write("b.csv", "b\n");
    bool opened = true;
    EXPECT_TRUE(inDialog([&] { opened = open(other); },
                         [](QDialog * dialog) { QTest::keyClick(dialog, Qt::Key_Escape); }));
    EXPECT_FALSE(opened);
    EXPECT_EQ(cell(0, 0), "new");
}
