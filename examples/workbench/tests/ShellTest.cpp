// SPDX-License-Identifier: BSD-3-Clause
// The window as the library's host.

#include "WindowTest.h"

#include <ZyCommandShell.h>
#include <ZyFilePath.h>
#include <ZyFileSystem.h>
#include <keelbase/KbHost.h>

#include <QLineEdit>
#include <QTest>

#include <atomic>
#include <thread>

namespace
{

class Shell : public WindowTest
{
protected:
    /** Types a command into the line below the log. */
    void command(QString const & text)
    {
        auto * const line = window().findChild<QLineEdit *>(QStringLiteral("command"));
        activate(&window());
        QTest::mouseClick(line, Qt::LeftButton);
        QTest::keyClicks(line, text);
        QTest::keyClick(line, Qt::Key_Return);
    }
};

} // namespace

TEST_F(Shell, OpenFileOfTheLibraryOpensTheFileHere)
{
    std::string const file = scratch.write("it's a test.net", "R1 in out 1k\nC1 out 0 1n\n");
    ZyFileSystem::OpenFile(ZyFilePath(ZyString(file)));
    EXPECT_TRUE(waitUntil([&] { return logHas("Opened " + file); }));
    EXPECT_EQ(cells(), "R1 in out 1k\nC1 out 0 1n\n");
}

TEST_F(Shell, ApostrophesOfBracedPathsAreSingleAgain)
{
    std::string const file = scratch.write("it's ''a'' test.sch", "wire\n");
    ZyFileSystem::OpenFile(ZyFilePath(ZyString(file)));
    EXPECT_TRUE(waitUntil([&] { return logHas("Opened " + file); }));
    EXPECT_EQ(cells(), "wire\n");
}

TEST_F(Shell, OtherKindsAreOpenedThroughTheLibrary)
{
    std::string const file = scratch.write("a.zyscr", "line 1\nline 2\n");
    EXPECT_TRUE(open(file));
    EXPECT_TRUE(waitUntil([&] { return cells() == "line 1\nline 2\n"; }));
    std::string const image = scratch.write("a.png", "");
    EXPECT_FALSE(open(image));
    EXPECT_EQ(status(), image + ": is nothing that can be opened here");
}

TEST_F(Shell, TypedCommandOpensATable)
{
    std::string const file = scratch.write("a.csv", "a,1\n");
    command(QStringLiteral("open \"%1\"").arg(QString::fromStdString(file)));
    EXPECT_TRUE(waitUntil([&] { return cells() == "a|1\n"; }));
}

TEST_F(Shell, MessagesOfAllThreadsArriveInTheLog)
{
    ZyCommandShell::PrintMessage("from here: 100%%\n");
    std::thread([] { ZyCommandShell::PrintMessage("from elsewhere\n"); }).join();
    EXPECT_TRUE(waitUntil([&] { return logHas("from elsewhere"); }));
    EXPECT_TRUE(logHas("from here: 100%\n"));
    command(QStringLiteral("print typed %s"));
    EXPECT_TRUE(waitUntil([&] { return logHas("typed %s\n"); }));
}

TEST_F(Shell, FaultIsReportedAndTheProgramGoesOn)
{
    for (int i = 1; i <= 3; ++i) {
        command(QStringLiteral("fault"));
        EXPECT_TRUE(waitUntil([&] { return logHas("An access violation occurred at "); })) << log();
    }
    choose(QStringLiteral("Developer"), QStringLiteral("Run a command that faults"));
    type(0, 0, QStringLiteral("alive"));
    EXPECT_EQ(cell(0, 0), "alive");
}

TEST_F(Shell, FaultOnAnotherThreadIsReportedToo)
{
    std::thread([] { ZyCommandShell::RunCommand("fault", true); }).join();
    EXPECT_TRUE(waitUntil([&] { return logHas("An access violation occurred at "); })) << log();
}

TEST_F(Shell, UnknownCommandIsTold)
{
    command(QStringLiteral("nonsense {'%s'}"));
    EXPECT_TRUE(waitUntil([&] { return logHas("Unknown command: nonsense {'%s'}\n"); })) << log();
    command(QStringLiteral("open"));
    EXPECT_TRUE(waitUntil([&] { return logHas("open: which file?\n"); })) << log();
}

TEST_F(Shell, CommandsOfOtherThreadsOutliveTheWindow)
{
    std::atomic<bool> stop{false};
    std::thread worker([&stop] {
        while (!stop) {
            ZyCommandShell::RunCommand("print from a thread", true);
        }
    });
    EXPECT_TRUE(waitUntil([&] { return logHas("from a thread"); }));
    dropWindow();
    stop = true;
    worker.join();
}

TEST_F(Shell, WithoutTheWindowThereIsNoHost)
{
    dropWindow();
    kb::OutputCapture const capture;
    ZyCommandShell::RunCommand("print lost", true);
    EXPECT_EQ(capture.text(),
              "*** FATAL ERROR *** Unresolved dynamic function 'widgets_GetShellInterface' called\n");
}
