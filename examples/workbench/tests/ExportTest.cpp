// SPDX-License-Identifier: BSD-3-Clause
// Exports in the background.

#include "WindowTest.h"

#include <QDialog>
#include <QDir>
#include <QTest>

#include <filesystem>
#include <string>

namespace
{

class Exporting : public WindowTest
{
protected:
    Exporting() { EXPECT_TRUE(open(scratch.write("in.csv", rows(3000)))); }

    static std::string rows(int count)
    {
        std::string text;
        for (int i = 0; i < count; ++i) {
            text += "row " + std::to_string(i) + "," + std::to_string(i) + ".5\n";
        }
        return text;
    }
    std::function<void()> const askForWorkbook = [this] { press(Qt::Key_E, Qt::ControlModifier); };
    std::function<void()> const askForSheet = [this] {
        press(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    };
    int ended() const
    {
        int count = 0;
        std::string const text = log();
        for (std::size_t at = text.find("Exported "); at != std::string::npos;
             at = text.find("Exported ", at + 1)) {
            ++count;
        }
        return count;
    }
    int filesInScratch() const
    {
        return QDir(QString::fromStdString(scratch.path())).entryList(QDir::Files | QDir::Hidden).size();
    }
};

} // namespace

TEST_F(Exporting, WorkbookArrivesWhileTheWindowGoesOn)
{
    EXPECT_TRUE(nameFile(askForWorkbook, scratch / "out.xlsx"));
    type(0, 0, QStringLiteral("typed meanwhile"));
    std::string const done = "Exported " + (scratch / "out.xlsx");
    EXPECT_TRUE(waitUntil([&] { return logHas(done); }));
    EXPECT_EQ(status(), done);
    EXPECT_EQ(scratch.read("out.xlsx").substr(0, 2), "PK");
    EXPECT_EQ(cell(0, 0), "typed meanwhile");
    EXPECT_EQ(filesInScratch(), 2);
}

TEST_F(Exporting, XmlSheetHoldsTheTableOfTheMomentOfAsking)
{
    EXPECT_TRUE(nameFile(askForSheet, scratch / "out"));
    type(2999, 0, QStringLiteral("too late"));
    EXPECT_TRUE(waitUntil([&] { return logHas("Exported "); }));
    std::string const text = scratch.read("out.xml");
    EXPECT_NE(text.find("row 2999"), std::string::npos);
    EXPECT_EQ(text.find("too late"), std::string::npos);
}

TEST_F(Exporting, FailureIsShownAndNothingIsLeftBehind)
{
    std::filesystem::create_directory(scratch / "taken.xlsx");
    window().exportTo(QString::fromStdString(scratch / "taken.xlsx"));
    EXPECT_TRUE(waitUntil([&] { return logHas("Not exported: "); }));
    EXPECT_EQ(status(), "Not exported: " + (scratch / "taken.xlsx") + ": is a directory");
    EXPECT_EQ(filesInScratch(), 1);
}

TEST_F(Exporting, SeveralExportsEndEach)
{
    EXPECT_TRUE(nameFile(askForWorkbook, scratch / "a.xlsx"));
    EXPECT_TRUE(nameFile(askForWorkbook, scratch / "b.xlsx"));
    EXPECT_TRUE(nameFile(askForSheet, scratch / "c.xml"));
    EXPECT_TRUE(waitUntil([&] { return ended() == 3; }));
    EXPECT_EQ(filesInScratch(), 4);
}

TEST_F(Exporting, WindowThatGoesGivesItsExportUp)
{
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(nameFile(askForSheet, scratch / ("out" + std::to_string(i) + ".xml")));
    }
    dropWindow();
    for (QString const & name :
         QDir(QString::fromStdString(scratch.path())).entryList(QDir::Files | QDir::Hidden)) {
        EXPECT_FALSE(name.endsWith(QStringLiteral(".tmp"))) << name.toStdString();
    }
}

TEST_F(Exporting, ClosingWaitsForTheExport)
{
    EXPECT_TRUE(nameFile(askForWorkbook, scratch / "out.xlsx"));
    window().close();
    EXPECT_TRUE(waitUntil([&] { return !window().isVisible(); }));
    EXPECT_EQ(scratch.read("out.xlsx").substr(0, 2), "PK");
    EXPECT_EQ(filesInScratch(), 2);
}

TEST_F(Exporting, ClosingTwiceGivesTheExportUp)
{
    EXPECT_TRUE(nameFile(askForSheet, scratch / "out.xml"));
    window().close();
    window().close();
    EXPECT_TRUE(waitUntil([&] { return !window().isVisible(); }));
    EXPECT_EQ(filesInScratch(), scratch.has("out.xml") ? 2 : 1);
}

TEST_F(Exporting, ClosingAsksForWhatHasBeenTypedWhileItWaited)
{
    EXPECT_TRUE(nameFile(askForWorkbook, scratch / "out.xlsx"));
    window().close();
    window().attempt([](Document & document) { document.edit(0, 0, QStringLiteral("later")); });
    EXPECT_TRUE(inDialog([this] { waitUntil([this] { return logHas("Exported "); }); },
                         [](QDialog * dialog) { QTest::keyClick(dialog, Qt::Key_Escape); }));
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(cell(0, 0), "later");
}
