// SPDX-License-Identifier: BSD-3-Clause
// Copying and pasting.

#include "WindowTest.h"

#include <ZyClipboard.h>

namespace
{

class Clipboard : public WindowTest
{
protected:
    Clipboard() { EXPECT_TRUE(open(scratch.write("in.csv", "Name,Value\n\"a, b\",1.5\n<c>,2\n"))); }

    static std::string on(char const * type) { return ZyClipboard::ReadText(ZyString(type)).toStdString(); }
};

} // namespace

TEST_F(Clipboard, SelectionIsCopiedInThreeForms)
{
    click(0, 0);
    press(Qt::Key_H, Qt::ControlModifier);
    select(0, 0, 2, 1);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(on("text/plain"), "Name\tValue\na, b\t1.5\n<c>\t2\n");
    EXPECT_EQ(on("text/csv"), "Name,Value\r\n\"a, b\",1.5\r\n<c>,2\r\n");
    EXPECT_EQ(on("text/html"), "<html><head><meta charset=\"utf-8\"></head><body><table>\n"
                               "<tr><th>Name</th><th>Value</th></tr>\n"
                               "<tr><td>a, b</td><td>1.5</td></tr>\n"
                               "<tr><td>&lt;c&gt;</td><td>2</td></tr>\n"
                               "</table></body></html>\n");
    EXPECT_EQ(status(), "Copied 3 × 2 cells");
}

TEST_F(Clipboard, WhatWasCopiedIsPastedInOneGo)
{
    select(1, 0, 2, 1);
    press(Qt::Key_C, Qt::ControlModifier);
    click(2, 1);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(cells(), "Name|Value|\na, b|1.5|\n<c>|a, b|1.5\n|<c>|2\n");
    EXPECT_EQ(undoText(), "&Undo Paste 2 × 2 cells");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(cells(), "Name|Value\na, b|1.5\n<c>|2\n");
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(cells(), "Name|Value|\na, b|1.5|\n<c>|a, b|1.5\n|<c>|2\n");
}

TEST_F(Clipboard, TextOfOtherProgramsBecomesCells)
{
    ZyClipboard::WriteText("x\t7\r\ny\r\n");
    click(0, 0);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(cells(), "x|7\ny|\n<c>|2\n");
}

TEST_F(Clipboard, EmptyClipboardPastesNothing)
{
    ZyClipboard::WriteText(ZyDeque<ZyClipboard::Item>());
    click(0, 0);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(cells(), "Name|Value\na, b|1.5\n<c>|2\n");
    EXPECT_FALSE(window().isWindowModified());
}
