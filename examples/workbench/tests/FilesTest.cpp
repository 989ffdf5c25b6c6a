// SPDX-License-Identifier: BSD-3-Clause
// Opening and saving.

#include "WindowTest.h"

#include <QAction>
#include <QDialog>
#include <QTest>

#include <csignal>
#include <filesystem>
#include <string>
#include <tuple>

#include <sys/resource.h>

namespace
{

/** While it lives, writes beyond a size of their file fail, as on a full disk. */
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_former);
        rlimit const limit = {bytes, m_former.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(FileSizeLimit const &) = delete;
    FileSizeLimit & operator=(FileSizeLimit const &) = delete;
    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &m_former); }

private:
    rlimit m_former{};
};

class Files : public WindowTest
{
protected:
    std::function<void()> const askToOpen = [this] { press(Qt::Key_O, Qt::ControlModifier); };
    std::function<void()> const askToSave = [this] {
        press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    };
    std::string const parts = scratch.write("parts.csv", "a,1\nb,2\n");
};

} // namespace

TEST_F(Files, FileIsOpenedThroughTheDialog)
{
    EXPECT_TRUE(nameFile(askToOpen, parts));
    EXPECT_EQ(cells(), "a|1\nb|2\n");
    EXPECT_EQ(title(), std::string("parts.csv[*] - zyworkbench"));
    EXPECT_EQ(status(), "Opened " + parts);
}

TEST_F(Files, DialogThatIsLeftOpensNothing)
{
    ASSERT_TRUE(open(parts));
    EXPECT_TRUE(inDialog(askToOpen, [](QDialog * dialog) { QTest::keyClick(dialog, Qt::Key_Escape); }));
    EXPECT_EQ(cells(), "a|1\nb|2\n");
}

TEST_F(Files, ChangesAreSavedInPlace)
{
    ASSERT_TRUE(open(parts));
    type(0, 1, QStringLiteral("x, y"));
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(scratch.read("parts.csv"), "a,\"x, y\"\r\nb,2\r\n");
    EXPECT_FALSE(window().isWindowModified());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(window().isWindowModified());
}

TEST_F(Files, WhatIsBeingTypedIsSavedToo)
{
    ASSERT_TRUE(open(parts));
    click(0, 0);
    press(Qt::Key_F2);
    press(Qt::Key_Q);
    choose(QStringLiteral("File"), QStringLiteral("Save"));
    EXPECT_EQ(scratch.read("parts.csv").substr(0, 3), "q,1");
}

TEST_F(Files, NameWithoutExtensionGetsOne)
{
    ASSERT_TRUE(open(parts));
    EXPECT_TRUE(nameFile(askToSave, scratch / "copy"));
    EXPECT_EQ(scratch.read("copy.csv"), "a,1\r\nb,2\r\n");
    EXPECT_EQ(title(), std::string("copy.csv[*] - zyworkbench"));
    EXPECT_TRUE(nameFile(askToSave, scratch / "rich.zyt.xml"));
    EXPECT_TRUE(open(scratch / "rich.zyt.xml"));
    EXPECT_EQ(cells(), "a|1\nb|2\n");
}

TEST_F(Files, NewTableHasNoFileUntilItIsSaved)
{
    ASSERT_TRUE(open(parts));
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(title(), std::string("Untitled[*] - zyworkbench"));
    EXPECT_EQ(cells(), "|||\n");
    type(0, 0, QStringLiteral("first"));
    EXPECT_TRUE(nameFile([this] { press(Qt::Key_S, Qt::ControlModifier); }, scratch / "new.csv"));
    EXPECT_EQ(scratch.read("new.csv"), "first,,,\r\n");
}

TEST_F(Files, DamagedFilesLeaveTheWindowAsItIs)
{
    ASSERT_TRUE(open(parts));
    type(0, 0, QStringLiteral("changed"));
    press(Qt::Key_Z, Qt::ControlModifier);
    for (auto const & [name, content, words] :
         {std::tuple("bad.csv", "a\n\"b\n", ":2: a quoted field does not end on its line"),
          std::tuple("empty.csv", "", ": is empty"),
          std::tuple("bad.zyt.xml", "<DataTable><Rows>", ":1: Premature end of document."),
          std::tuple("bad.msw", "<msw", ": is no result file that can be read")}) {
        std::string const file = scratch.write(name, content);
        EXPECT_TRUE(nameFile(askToOpen, file));
        EXPECT_EQ(status(), file + words);
        EXPECT_TRUE(logHas(file + words));
        EXPECT_EQ(cells(), "a|1\nb|2\n");
        EXPECT_EQ(title(), std::string("parts.csv[*] - zyworkbench"));
        EXPECT_TRUE(action(QStringLiteral("Edit"), QStringLiteral("Redo"))->isEnabled());
    }
}

TEST_F(Files, SavingToADirectoryIsToldAndLeavesIt)
{
    ASSERT_TRUE(open(parts));
    type(0, 0, QStringLiteral("new"));
    std::filesystem::remove(parts);
    std::filesystem::create_directory(parts);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(status(), parts + ": Unable to open file for writing");
    EXPECT_TRUE(std::filesystem::is_directory(parts));
    EXPECT_TRUE(window().isWindowModified());
}

TEST_F(Files, SavingIntoAVanishedFolderIsTold)
{
    std::filesystem::create_directory(scratch / "gone");
    std::string const file = scratch.write("gone/a.csv", "a\nb\n");
    ASSERT_TRUE(open(file));
    type(0, 0, QStringLiteral("new"));
    std::filesystem::remove_all(scratch / "gone");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(status(), file + ": Unable to open file for writing");
    EXPECT_TRUE(window().isWindowModified());
}

// Root writes where it likes, and a full disk is the same to everybody.
TEST_F(Files, FullDiskLeavesTheOldFile)
{
    std::string long_text;
    for (int i = 0; i < 20000; ++i) {
        long_text += "row " + std::to_string(i) + "," + std::to_string(i) + "\n";
    }
    std::string const file = scratch.write("large.csv", long_text);
    ASSERT_TRUE(open(file));
    type(0, 0, QStringLiteral("new"));
    {
        FileSizeLimit const limit(4096);
        press(Qt::Key_S, Qt::ControlModifier);
    }
    EXPECT_EQ(status().substr(0, file.size() + 15), file + ": Cannot save [");
    EXPECT_TRUE(scratch.read("large.csv") == long_text);
    EXPECT_TRUE(window().isWindowModified());
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(scratch.read("large.csv").substr(0, 5), "new,0");
}
