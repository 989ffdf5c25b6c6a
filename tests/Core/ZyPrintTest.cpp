// SPDX-License-Identifier: BSD-3-Clause
// Tests of printing.
#include <ZyCaseSensitiveString.h>
#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyPrint.h>
#include <ZyString.h>
#include <ZyStringView.h>
#include <ZyVariant.h>

#include <QDebug>
#include <QString>
#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>

namespace
{
template <class T>
std::string streamed(T const & value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

template <class T>
std::string debugged(T const & value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text.toStdString();
}

struct Number
{
    ZyString toString() const { return ZyString(42); }
};
} // namespace

TEST(ZyPrint, WritesTextToStreams)
{
    ZyString const text("Abc \xC3\xA4");
    EXPECT_EQ(streamed(text), "Abc \xC3\xA4");
    EXPECT_EQ(streamed(text.substring(1, 2)), "bc");
    EXPECT_EQ(streamed(ZyCaseSensitiveString("Id")), "Id");
    EXPECT_EQ(streamed(ZyString()), "");
    EXPECT_EQ(streamed(ZyStringView()), "");
    EXPECT_EQ(streamed(ZyString(std::string("a\0b", 3))), std::string("a\0b", 3));
    ZyComparableString const & base = text;
    EXPECT_EQ(streamed(base), "Abc \xC3\xA4");
}

TEST(ZyPrint, WritesValuesAsTheirToString)
{
    EXPECT_EQ(streamed(ZyVariant()), "null");
    EXPECT_EQ(streamed(ZyVariant(1.5)), "1.5");
    EXPECT_EQ(streamed(ZyVariant("text")), "text");
    EXPECT_EQ(streamed(ZyFilePath("a/b")), "a\\b");
    EXPECT_EQ(streamed(Number()), "42");
}

TEST(ZyPrint, WritesPairsInBrackets)
{
    EXPECT_EQ(streamed(ZyPair<ZyString, ZyString>("a", "b")), "[a,b]");
    EXPECT_EQ(streamed(ZyPair<ZyFilePath, ZyVariant>("a/b", 3)), "[a\\b,3]");
}

TEST(ZyPrint, HonoursTheWidthOfAStream)
{
    std::ostringstream stream;
    stream << std::setw(5) << ZyString("abc") << '|' << std::left << std::setw(4) << ZyVariant(1) << '|';
    EXPECT_EQ(stream.str(), "  abc|1   |");
}

TEST(ZyPrint, WritesToTheDebugStreamWithoutQuotes)
{
    EXPECT_EQ(debugged(ZyString("a \"b\" \xC3\xA4")), "a \"b\" \xC3\xA4");
    EXPECT_EQ(debugged(ZyVariant(true)), "true");
    EXPECT_EQ(debugged(ZyFilePath("a/b")), "a\\b");
    EXPECT_EQ(debugged(ZyPair<ZyString, ZyString>("a", "b")), "[a,b]");
}

TEST(ZyPrint, LeavesTheDebugStreamAsItWas)
{
    QString text;
    QDebug(&text).nospace() << ZyString("a") << QStringLiteral("b") << ZyString("c");
    EXPECT_EQ(text.toStdString(), "a\"b\"c");
    QString spaced;
    QDebug(&spaced) << ZyString("a") << 5;
    EXPECT_EQ(spaced.trimmed().toStdString(), "a 5");
}

TEST(ZyPrint, ServesGoogleTest)
{
    EXPECT_EQ(testing::PrintToString(ZyVariant(1.5)), "1.5");
    EXPECT_EQ(testing::PrintToString(ZyString("abc")), "abc");
    EXPECT_EQ(testing::PrintToString(ZyFilePath("a/b")), "a\\b");
}

TEST(ZyPrint, LeavesOtherTypesAlone)
{
    EXPECT_EQ(streamed(5), "5");
    EXPECT_EQ(streamed("literal"), "literal");
    EXPECT_EQ(streamed(std::string("text")), "text");
    EXPECT_EQ(streamed('c'), "c");
}
