// SPDX-License-Identifier: BSD-3-Clause
// Tests of the clipboard. It is one for the process: every test writes before it reads.
#include <ZyClipboard.h>
#include <ZyDeque.h>
#include <ZyException.h>
#include <ZyString.h>

#include <CoreApplication.h>
#include <GuiApplication.h>
#include <Restricted.h>
#include <ThrowsMessage.h>

#include <QByteArray>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

static_assert(std::is_empty_v<ZyClipboard> && std::is_copy_assignable_v<ZyClipboard> &&
              std::is_move_assignable_v<ZyClipboard>);
static_assert(sizeof(ZyClipboard::Item) == 2 * sizeof(ZyString));

namespace
{
using Items = ZyDeque<ZyClipboard::Item>;

class ZyClipboardTest : public testing::Test
{
protected:
    QMimeData const & offered() const { return *QGuiApplication::clipboard()->mimeData(); }

private:
    GuiApplication m_application;
};

void expectNoClipboard()
{
    EXPECT_ZY_THROW(ZyClipboard::ReadText(), ZyNoClipboardException, "No clipboard available");
    EXPECT_ZY_THROW(ZyClipboard::ReadText("text/plain"), ZyNoClipboardException, "No clipboard available");
    EXPECT_ZY_THROW(ZyClipboard::WriteText("a"), ZyNoClipboardException, "No clipboard available");
    EXPECT_ZY_THROW(ZyClipboard::WriteText("a", "text/plain"), ZyNoClipboardException,
                    "No clipboard available");
    EXPECT_ZY_THROW(ZyClipboard::WriteText(Items()), ZyNoClipboardException, "No clipboard available");
}
} // namespace

TEST(ZyClipboard, IsNotThereWithoutAnApplication)
{
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    expectNoClipboard();
}

TEST(ZyClipboard, IsNotThereWithoutADesktop)
{
    CoreApplication const application;
    expectNoClipboard();
}

TEST(ZyClipboard, IsNotThereAnyMoreAfterTheApplication)
{
    {
        GuiApplication const application;
        ZyClipboard::WriteText("a");
    }
    expectNoClipboard();
}

TEST(ZyClipboard, ItemsHaveTheTypeFirst)
{
    ZyClipboard::Item const item{"text/html", "data"};
    EXPECT_EQ(item.mimeType, "text/html");
    EXPECT_EQ(item.data, "data");
}

TEST(ZyClipboard, ItemsAreEqualByteForByte)
{
    ZyClipboard::Item const item{"text/html", "data"};
    EXPECT_TRUE(item == (ZyClipboard::Item{"text/html", "data"}));
    EXPECT_FALSE(item == (ZyClipboard::Item{"text/HTML", "data"}));
    EXPECT_FALSE(item == (ZyClipboard::Item{"text/html", "Data"}));
    EXPECT_TRUE(Items{item}.contains(item));
}

TEST_F(ZyClipboardTest, TextComesBack)
{
    std::string const text = "\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80\r\n\tend ";
    ZyClipboard::WriteText(ZyString(text));
    EXPECT_EQ(ZyClipboard::ReadText().toStdString(), text);
    EXPECT_EQ(ZyClipboard::ReadText("text/plain").toStdString(), text);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString::fromStdString(text));
}

TEST_F(ZyClipboardTest, TextIsCutAtANulAndMendedWhereItIsNoUtf8)
{
    ZyClipboard::WriteText(ZyString(std::string("ab\0cd", 5)));
    EXPECT_EQ(ZyClipboard::ReadText().toStdString(), "ab");
    ZyClipboard::WriteText(ZyString("a\xFF"));
    EXPECT_EQ(ZyClipboard::ReadText().toStdString(), "a\xEF\xBF\xBD");
}

TEST_F(ZyClipboardTest, EmptyTextIsText)
{
    ZyClipboard::WriteText("a");
    ZyClipboard::WriteText("");
    EXPECT_EQ(ZyClipboard::ReadText().toStdString(), "");
    EXPECT_EQ(ZyClipboard::ReadText("text/plain").toStdString(), "");
}

TEST_F(ZyClipboardTest, DataComesBackUnderItsType)
{
    ZyClipboard::WriteText("abc", "application/x-zycore-test");
    EXPECT_EQ(ZyClipboard::ReadText("application/x-zycore-test").toStdString(), "abc");
    EXPECT_EQ(ZyClipboard::ReadText().toStdString(), "") << "it is no text";
}

TEST_F(ZyClipboardTest, Deliberate_clipboard_data_first)
{
    ZyClipboard::WriteText("text/html", "text/plain");
    EXPECT_EQ(ZyClipboard::ReadText("text/plain").toStdString(), "text/html");
}

TEST_F(ZyClipboardTest, Deliberate_clipboard_data_ends_at_nul)
{
    ZyClipboard::WriteText(ZyString(std::string("ab\0cd", 5)), "application/x-zycore-test");
    EXPECT_EQ(ZyClipboard::ReadText("application/x-zycore-test").toStdString(), "ab");
    ZyClipboard::WriteText(Items{{"application/x-zycore-test", ZyString(std::string("\0cd", 3))}});
    EXPECT_EQ(ZyClipboard::ReadText("application/x-zycore-test").toStdString(), "");
}

TEST_F(ZyClipboardTest, WhatAnotherProgramPutThereComesWithAllItsBytes)
{
    auto * const data = new QMimeData; // the clipboard takes it
    data->setData(QStringLiteral("application/x-zycore-test"), QByteArray("a\0\xFF\r\n", 5));
    QGuiApplication::clipboard()->setMimeData(data);
    EXPECT_EQ(ZyClipboard::ReadText("application/x-zycore-test").toStdString(),
              std::string("a\0\xFF\r\n", 5));
}

TEST_F(ZyClipboardTest, BytesUnderATextTypeAreNotDecoded)
{
    ZyClipboard::WriteText("a\xFF\xFE", "text/plain");
    EXPECT_EQ(ZyClipboard::ReadText("text/plain").toStdString(), "a\xFF\xFE");
}

TEST_F(ZyClipboardTest, AMissingTypeIsNamed)
{
    ZyClipboard::WriteText("abc", "application/x-zycore-test");
    EXPECT_ZY_THROW(ZyClipboard::ReadText("text/html"), ZyInvalidMimeDataException,
                    "No MIME data of given type available: text/html");
    EXPECT_ZY_THROW(ZyClipboard::ReadText("application/X-ZyCore-Test"), ZyInvalidMimeDataException,
                    "No MIME data of given type available: application/X-ZyCore-Test");
    EXPECT_ZY_THROW(ZyClipboard::ReadText(""), ZyInvalidMimeDataException,
                    "No MIME data of given type available: ");
}

TEST_F(ZyClipboardTest, AllItemsArriveTogether)
{
    ZyClipboard::WriteText(Items{{"text/plain", "a\tb"}, {"text/csv", "a,b"}, {"text/html", "<td>a<td>b"}});
    EXPECT_EQ(offered().formats(), QStringList({QStringLiteral("text/plain"), QStringLiteral("text/csv"),
                                                QStringLiteral("text/html")}));
    EXPECT_EQ(ZyClipboard::ReadText("text/plain").toStdString(), "a\tb");
    EXPECT_EQ(ZyClipboard::ReadText("text/csv").toStdString(), "a,b");
    EXPECT_EQ(ZyClipboard::ReadText("text/html").toStdString(), "<td>a<td>b");
    EXPECT_EQ(ZyClipboard::ReadText().toStdString(), "a\tb");
}

TEST_F(ZyClipboardTest, ALaterItemOfTheSameTypeReplacesAnEarlierOne)
{
    ZyClipboard::WriteText(Items{{"text/csv", "old"}, {"text/plain", "x"}, {"text/csv", "new"}});
    EXPECT_EQ(ZyClipboard::ReadText("text/csv").toStdString(), "new");
    EXPECT_EQ(offered().formats().size(), 2);
}

TEST_F(ZyClipboardTest, WritingReplacesAllThatWasThere)
{
    ZyClipboard::WriteText(Items{{"text/csv", "a"}, {"text/html", "b"}});
    ZyClipboard::WriteText("c", "text/csv");
    EXPECT_ZY_THROW(ZyClipboard::ReadText("text/html"), ZyInvalidMimeDataException,
                    "No MIME data of given type available: text/html");
}

TEST_F(ZyClipboardTest, NoItemsEmptyTheClipboard)
{
    ZyClipboard::WriteText("a");
    ZyClipboard::WriteText(Items());
    EXPECT_TRUE(offered().formats().isEmpty());
    EXPECT_EQ(ZyClipboard::ReadText().toStdString(), "");
    EXPECT_ZY_THROW(ZyClipboard::ReadText("text/plain"), ZyInvalidMimeDataException,
                    "No MIME data of given type available: text/plain");
}

TEST_F(ZyClipboardTest, AnEmptyTypeIsATypeToo)
{
    ZyClipboard::WriteText("a", "");
    EXPECT_EQ(ZyClipboard::ReadText("").toStdString(), "a");
}

// In a process of its own, in which no other test has written.
TEST(ZyClipboardDeathTest, HasNothingBeforeTheFirstWriting)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(Restricted::exitWith([] {
                    GuiApplication const application;
                    bool const isEmpty = ZyClipboard::ReadText().isEmpty();
                    try {
                        ZyClipboard::ReadText("text/plain");
                    } catch (ZyInvalidMimeDataException const & e) {
                        return isEmpty && e.message() == "No MIME data of given type available: text/plain";
                    }
                    return false;
                }),
                testing::ExitedWithCode(0), "");
}

TEST_F(ZyClipboardTest, LargeDataComesBack)
{
    std::string const large(std::size_t(16) << 20, 'x');
    ZyClipboard::WriteText(ZyString(large), "application/x-zycore-test");
    EXPECT_EQ(ZyClipboard::ReadText("application/x-zycore-test").toStdString(), large);
}
