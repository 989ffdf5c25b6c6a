// SPDX-License-Identifier: BSD-3-Clause
// The two readers of comma-separated text.
#include <ZyVariantTable.h>

#include <ZyCSVFile.h>
#include <ZyException.h>
#include <ZyFile.h>
#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyStringDevice.h>
#include <ZyTemporaryDir.h>

#include "TestDevices.h"
#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace
{
using CannotOpenException = ZyIODevice::CannotOpenException;

/** Bytes of a literal that may hold NUL. */
std::string bytes(char const * text, std::size_t size)
{
    return std::string(text, size);
}

/** A file in a directory of its own, gone with the test. */
class TemporaryText
{
public:
    explicit TemporaryText(std::string const & content)
    {
        ZyFile file(path());
        file.open(ZyIODevice::Write);
        file.write(content);
        file.close();
    }
    ZyFilePath path() const { return m_directory.path("text.csv"); }

private:
    ZyTemporaryDir m_directory;
};

std::string escaped(std::string const & text)
{
    std::string result;
    for (char const c : text) {
        auto const byte = static_cast<unsigned char>(c);
        if (c == '\r') {
            result += "\\r";
        } else if (byte < 32 || byte > 126) {
            char hexadecimal[8];
            std::snprintf(hexadecimal, sizeof hexadecimal, "\\x%02X", static_cast<unsigned int>(byte));
            result += hexadecimal;
        } else {
            result += c;
        }
    }
    return result;
}

std::string shown(ZyVariant const & cell)
{
    switch (cell.type()) {
    case ZyVariant::Boolean:
        return "b:" + cell.toString().toStdString();
    case ZyVariant::Integer:
        return "i:" + cell.toString().toStdString();
    case ZyVariant::Double:
        return "d:" + cell.toString().toStdString();
    case ZyVariant::String:
        return "s:" + escaped(cell.asString().toStdString());
    default:
        return "?:" + cell.toString().toStdString();
    }
}

std::string shown(ZyVariantTable const & table)
{
    if (table.numberRows() == 0) {
        return "0 rows, " + std::to_string(table.numberColumns()) + " columns";
    }
    std::string result;
    table.forEach([&](unsigned int row, unsigned int column, ZyVariant const & cell) {
        result += (column > 0 ? " | " : row > 0 ? " / " : "") + shown(cell);
    });
    return result;
}

/** The table that a reader gives, or the class and the numbers of the exception. */
std::string shownResult(std::function<ZyVariantTable()> const & read)
{
    try {
        return shown(read());
    } catch (ZyException const & e) {
        std::string const words = e.message().toStdString();
        return e.name() + words.substr(std::string("Index out of bounds").size());
    }
}

std::string loaded(ZyIODevice & device, bool typed)
{
    return shownResult([&] { return ZyVariantTable::LoadCSV(device, typed); });
}

struct Example
{
    std::string name;
    std::string input;
    std::string typedLoad;
    std::string typedPath;
    std::string untypedLoad;
    std::string untypedPath;
};

class ZyVariantTableReaders : public testing::TestWithParam<Example>
{};

Example const examples[] = {
    Example{"Nothing", bytes("", 0), "0 rows, 0 columns", "0 rows, 0 columns", "0 rows, 0 columns",
            "0 rows, 0 columns"},
    Example{"ShortSecondLine", bytes("1,2,3\nx\n", 8), "i:1 | i:2 | i:3 / s:x | b:true | b:true",
            "i:1 | i:2 | i:3 / s:x | s: | s:", "s:1 | s:2 | s:3 / s:x | b:false | b:false",
            "s:1 | s:2 | s:3 / s:x | s: | s:"},
    Example{"ShortSecondLineOfWindows", bytes("1,2,3\r\nx\r\n", 10),
            "i:1 | i:2 | i:3 / s:x | b:true | b:true", "i:1 | i:2 | i:3 / s:x | s: | s:",
            "s:1 | s:2 | s:3 / s:x | b:false | b:false", "s:1 | s:2 | s:3 / s:x | s: | s:"},
    Example{"QuotedComma", bytes("\"a,b\",c\n", 8), "s:a,b | s:c", "s:\"a | s:b\" | s:c", "s:a,b | s:c",
            "s:\"a | s:b\" | s:c"},
    Example{"LastFieldEmpty", bytes("1,2,\n", 5), "ZyIndexOutOfBoundsException [5,5]",
            "i:1 | i:2 | s:", "ZyIndexOutOfBoundsException [5,5]", "s:1 | s:2 | s:"},
    Example{"BlankLine", bytes("a\n\nb\n", 5), "ZyIndexOutOfBoundsException [1,1]", "s:a / s: / s:b",
            "ZyIndexOutOfBoundsException [1,1]", "s:a / s: / s:b"},
    Example{"OnlyALineFeed", bytes("\n", 1), "ZyIndexOutOfBoundsException [1,1]",
            "s:", "ZyIndexOutOfBoundsException [1,1]", "s:"},
    Example{"ByteOrderMark",
            bytes("\xEF"
                  "\xBB"
                  "\xBF"
                  "1,2\n",
                  7),
            "s:\\xEF\\xBB\\xBF1 | i:2", "s:\\xEF\\xBB\\xBF1 | i:2", "s:\\xEF\\xBB\\xBF1 | s:2",
            "s:\\xEF\\xBB\\xBF1 | s:2"},
    Example{"ByteOrderMarkBeforeQuote",
            bytes("\xEF"
                  "\xBB"
                  "\xBF"
                  "\"1\",2\n",
                  9),
            "s:\\xEF\\xBB\\xBF\"1\" | i:2", "s:\\xEF\\xBB\\xBF\"1\" | i:2", "s:\\xEF\\xBB\\xBF\"1\" | s:2",
            "s:\\xEF\\xBB\\xBF\"1\" | s:2"},
    Example{"QuotesDoNotSpanLines", bytes("\"a\nb\",c\n", 8), "s:\"a / s:b\",c", "s:\"a | s: / s:b\" | s:c",
            "s:\"a / s:b\",c", "s:\"a | s: / s:b\" | s:c"},
    Example{"NoFinalLineFeed", bytes("a,b", 3), "s:a | s:b", "s:a | s:b", "s:a | s:b", "s:a | s:b"},
    Example{"BlankRest", bytes("a,b\n ", 5), "ZyIndexOutOfBoundsException [1,1]",
            "s:a | s:b / s: | s:", "ZyIndexOutOfBoundsException [1,1]", "s:a | s:b / s: | s:"},
    Example{"EmptyFieldInTheMiddle", bytes("a,,b\n", 5), "s:a | s: | s:b", "s:a | s: | s:b", "s:a | s: | s:b",
            "s:a | s: | s:b"},
    Example{"BlankFields", bytes(" , ,b\n", 6), "s: | s: | s:b", "s: | s: | s:b", "s: | s: | s:b",
            "s: | s: | s:b"},
    Example{"ZeroByte",
            bytes("a\x00"
                  "b,c\nd\n",
                  8),
            "s:ab | s:c / s:d | b:true", "s:a\\x00b | s:c / s:d | s:", "s:ab | s:c / s:d | b:false",
            "s:a\\x00b | s:c / s:d | s:"},
    Example{"EmptyQuotes", bytes("\"\",x\n", 5), "s: | s:x", "s:\"\" | s:x", "s: | s:x", "s:\"\" | s:x"},
    Example{"UnbalancedQuote", bytes("\",x\n", 4), "s:\",x", "s:\" | s:x", "s:\",x", "s:\" | s:x"},
    Example{"DoubledQuote", bytes("\"a\"\"b\",x\n", 9), "s:a\"\"b | s:x", "s:\"a\"\"b\" | s:x",
            "s:a\"\"b | s:x", "s:\"a\"\"b\" | s:x"},
    Example{"BlanksAroundNumbers", bytes(" 7 ,\t8\t,9\n", 10), "i:7 | i:8 | i:9", "i:7 | i:8 | i:9",
            "s:7 | s:8 | s:9", "s:7 | s:8 | s:9"},
    Example{"UncanonicalIntegers", bytes("007,+7,-0,-7\n", 13), "d:7 | d:7 | d:-0 | i:-7",
            "d:7 | d:7 | d:-0 | i:-7", "s:007 | s:+7 | s:-0 | s:-7", "s:007 | s:+7 | s:-0 | s:-7"},
    Example{"WhatStrtodKnows", bytes("1e3,0x10,inf,nan,1e999\n", 23), "d:1000 | d:16 | d:inf | d:nan | d:inf",
            "d:1000 | d:16 | d:inf | d:nan | d:inf", "s:1e3 | s:0x10 | s:inf | s:nan | s:1e999",
            "s:1e3 | s:0x10 | s:inf | s:nan | s:1e999"},
    Example{"EdgesOfTheIntegers", bytes("2147483647,2147483648,-2147483648\n", 34),
            "i:2147483647 | d:2.14748e+09 | i:-2147483648", "i:2147483647 | d:2.14748e+09 | i:-2147483648",
            "s:2147483647 | s:2147483648 | s:-2147483648", "s:2147483647 | s:2147483648 | s:-2147483648"},
    Example{"LoneCarriageReturns", bytes("a;b\rc,d\r", 8), "s:a;b\\rc | s:d", "s:a;b\\rc | s:d",
            "s:a;b\\rc | s:d", "s:a;b\\rc | s:d"},
    Example{"QuotesBehindABlank", bytes("1, \"x , y\" ,3\n", 14), "i:1 | s:x , y | i:3",
            "i:1 | s:\"x | s:y\" | i:3", "s:1 | s:x , y | s:3", "s:1 | s:\"x | s:y\" | s:3"},
    Example{"BytesBeyondAscii",
            bytes("5,\xC3"
                  "\xA4"
                  ",\xA0"
                  "\n",
                  7),
            "i:5 | s:\\xC3\\xA4 | s:\\xA0", "i:5 | s:\\xC3\\xA4 | s:\\xA0", "s:5 | s:\\xC3\\xA4 | s:\\xA0",
            "s:5 | s:\\xC3\\xA4 | s:\\xA0"},
    Example{"TwoEmptyFields", bytes(",\n", 2), "ZyIndexOutOfBoundsException [2,2]",
            "s: | s:", "ZyIndexOutOfBoundsException [2,2]", "s: | s:"},
    Example{"EmptyFieldsInFront", bytes(",,x\n", 4), "s: | s: | s:x", "s: | s: | s:x", "s: | s: | s:x",
            "s: | s: | s:x"}};
} // namespace

TEST_P(ZyVariantTableReaders, LoadFromAFile)
{
    TemporaryText const text(GetParam().input);
    ZyFile typed(text.path());
    EXPECT_EQ(loaded(typed, true), GetParam().typedLoad);
    ZyCSVFile untyped(text.path().path());
    EXPECT_EQ(loaded(untyped, false), GetParam().untypedLoad);
}

TEST_P(ZyVariantTableReaders, ReadAPath)
{
    TemporaryText const text(GetParam().input);
    ZyString const path = text.path().path();
    EXPECT_EQ(shownResult([&] { return ZyVariantTable(path, true); }), GetParam().typedPath);
    EXPECT_EQ(shownResult([&] { return ZyVariantTable(path, false); }), GetParam().untypedPath);
}

TEST_P(ZyVariantTableReaders, LoadFromMemoryAndFromADeviceOfAHost)
{
    if (GetParam().input.find('\0') != std::string::npos) {
        GTEST_SKIP() << "only files lose zero bytes";
    }
    ZyStringDevice typed(ZyString(GetParam().input));
    EXPECT_EQ(loaded(typed, true), GetParam().typedLoad);
    ByteDevice untyped(GetParam().input);
    EXPECT_EQ(loaded(untyped, false), GetParam().untypedLoad);
}

INSTANTIATE_TEST_SUITE_P(Examples, ZyVariantTableReaders, testing::ValuesIn(examples),
                         [](testing::TestParamInfo<Example> const & example) { return example.param.name; });

TEST(ZyVariantTableLoadCSV, GivesAnEmptyTableForAnEmptyDevice)
{
    ZyStringDevice device;
    ZyVariantTable const table = ZyVariantTable::LoadCSV(device, true);
    EXPECT_EQ(table.numberRows(), 0u);
    EXPECT_EQ(table.numberColumns(), 0u);
}

TEST(ZyVariantTableLoadCSV, ThrowsWhenTheLastFieldOfALineIsEmpty)
{
    ZyStringDevice device("1,2,");
    EXPECT_ZY_THROW(ZyVariantTable::LoadCSV(device, true), ZyIndexOutOfBoundsException,
                    "Index out of bounds [4,4]");
}

TEST(ZyVariantTableLoadCSV, Deliberate_csv_padding_is_boolean)
{
    ZyStringDevice typed("1,2,3\nx");
    EXPECT_EQ(loaded(typed, true), "i:1 | i:2 | i:3 / s:x | b:true | b:true");
    ZyStringDevice untyped("1,2,3\nx");
    EXPECT_EQ(loaded(untyped, false), "s:1 | s:2 | s:3 / s:x | b:false | b:false");
    ZyStringDevice growing("a\nb,c\nd,e,f\ng");
    EXPECT_EQ(loaded(growing, false),
              "s:a | b:false | b:false / s:b | s:c | b:false / s:d | s:e | s:f / s:g | b:false | b:false");
}

TEST(ZyVariantTableLoadCSV, Deliberate_csv_two_readers)
{
    std::string const content = "\"a,b\",c\n 7 ,x,\n";
    TemporaryText const text(content);
    ZyFile file(text.path());
    EXPECT_EQ(loaded(file, true), "ZyIndexOutOfBoundsException [7,7]");
    EXPECT_EQ(shown(ZyVariantTable(text.path().path(), true)), "s:\"a | s:b\" | s:c / i:7 | s:x | s:");
}

TEST(ZyVariantTableLoadCSV, Deliberate_loaded_device_stays_open_at_its_end)
{
    ZyStringDevice device("1\n2\n");
    ZyVariantTable::LoadCSV(device, true);
    EXPECT_EQ(device.mode(), ZyIODevice::Read);
    EXPECT_TRUE(device.atEnd());
}

TEST(ZyVariantTableLoadCSV, Deliberate_loaded_device_stays_open_behind_a_line_that_failed)
{
    ByteDevice device("1\n2,\n3\n");
    EXPECT_ZY_THROW(ZyVariantTable::LoadCSV(device, true), ZyIndexOutOfBoundsException,
                    "Index out of bounds [3,3]");
    EXPECT_EQ(device.mode(), ZyIODevice::Read);
    EXPECT_EQ(device.position(), 5u);
}

TEST(ZyVariantTableLoadCSV, ThrowsWhenTheDeviceDoesNotOpen)
{
    ByteDevice refusing("1");
    refusing.opens = false;
    EXPECT_ZY_THROW(ZyVariantTable::LoadCSV(refusing, true), CannotOpenException, "");
    ZyStringDevice open("1");
    open.open(ZyIODevice::Read);
    EXPECT_ZY_THROW(ZyVariantTable::LoadCSV(open, true), CannotOpenException, "");
    EXPECT_EQ(open.lastError().toStdString(), "Device already open");
}

TEST(ZyVariantTableLoadCSV, PassesOnWhatTheDeviceThrows)
{
    ZyFile missing(ZyFilePath("no-such-directory/text.csv"));
    EXPECT_ZY_THROW(ZyVariantTable::LoadCSV(missing, true), ZyFileNotFoundException,
                    "File not found: no-such-directory\\text.csv");
    ByteDevice failing("1,2\n3,4\n");
    failing.failingByte = 6;
    EXPECT_ZY_THROW(ZyVariantTable::LoadCSV(failing, true), ZyIOException, "Read refused");
}

TEST(ZyVariantTableLoadCSV, KeepsZeroBytesOfADeviceInMemory)
{
    ZyStringDevice device(ZyString(bytes("a\0b,1\0x\n", 8)));
    ZyVariantTable const table = ZyVariantTable::LoadCSV(device, false);
    EXPECT_EQ(table.at(0, 0).asString().toStdString(), bytes("a\0b", 3));
    EXPECT_EQ(table.at(0, 1).asString().toStdString(), bytes("1\0x", 3));
}

TEST(ZyVariantTableLoadCSV, ReadsNumbersWithBlanksInsideQuotes)
{
    ZyStringDevice device("\" 12 \",\" 1.5\",\" x \",\"\t-0x10 \"");
    EXPECT_EQ(loaded(device, true), "i:12 | d:1.5 | s: x  | d:-16");
}

TEST(ZyVariantTableLoadCSV, TakesALineOfSeveralMegabytes)
{
    std::string content = "a,b\n";
    for (int i = 0; i < 200000; ++i) {
        content += std::to_string(i) + ",";
    }
    content += std::string(1000000, 'x') + "\nend";
    ZyStringDevice device{ZyString(content)};
    ZyVariantTable const table = ZyVariantTable::LoadCSV(device, true);
    ASSERT_EQ(table.numberRows(), 3u);
    ASSERT_EQ(table.numberColumns(), 200001u);
    EXPECT_EQ(table.at(0, 2), ZyVariant(true));
    EXPECT_EQ(table.at(1, 199999), ZyVariant(199999));
    EXPECT_EQ(table.at(1, 200000).asString().size(), 1000000u);
    EXPECT_EQ(table.at(2, 0), ZyVariant("end"));
}

TEST(ZyVariantTableLoadCSV, TakesManyLines)
{
    std::string content;
    for (int i = 0; i < 100000; ++i) {
        content += std::to_string(i) + ",x\n";
    }
    ZyStringDevice device{ZyString(content)};
    ZyVariantTable const table = ZyVariantTable::LoadCSV(device, true);
    ASSERT_EQ(table.numberRows(), 100000u);
    for (unsigned int row = 0; row < table.numberRows(); ++row) {
        ASSERT_EQ(table.at(row, 0).asInteger(), static_cast<int>(row));
    }
}

TEST(ZyVariantTableLoadCSV, RefusesMoreCellsThanAnIndexCanSay)
{
    std::string content(70000, ',');
    content += "x\n";
    for (int i = 0; i < 70000; ++i) {
        content += "y\n";
    }
    ZyStringDevice device{ZyString(content)};
    EXPECT_STD_THROW(ZyVariantTable::LoadCSV(device, false), std::length_error,
                     "ZyVariantTable: rows times columns");
}

TEST(ZyVariantTableLoadCSV, SplitsLikeExtractLineAndTypesLikeTheString)
{
    // All lines of up to five of these characters, so every neighbourhood of them.
    std::string const alphabet = "\", 1-.x\r";
    std::vector<std::string> lines{""};
    for (std::size_t first = 0, length = 0; length < 5; ++length) {
        std::size_t const last = lines.size();
        for (; first < last; ++first) {
            for (char const c : alphabet) {
                lines.push_back(lines[first] + c);
            }
        }
    }
    for (std::string const & line : lines) {
        ZyString const text(line + "\n");
        auto const byRule = [&] {
            ZyDeque<ZyStringView> const fields = ZyCSVFile::ExtractLine(text);
            ZyVariantTable table(1, fields.size());
            for (unsigned int i = 0; i < fields.size(); ++i) {
                ZyStringView const & field = fields.at(i);
                table.at(0, i) = field.isInteger()  ? ZyVariant(field.toInt())
                                 : field.isDouble() ? ZyVariant(field.toString().toDouble())
                                                    : ZyVariant(field.toString());
            }
            return table;
        };
        ZyStringDevice device(text);
        ASSERT_EQ(loaded(device, true), shownResult(byRule)) << escaped(line);
    }
}

TEST(ZyVariantTablePath, KeepsATrailingEmptyField)
{
    TemporaryText const text("1,2,");
    EXPECT_EQ(shown(ZyVariantTable(text.path().path(), true)), "i:1 | i:2 | s:");
}

TEST(ZyVariantTablePath, PadsWithEmptyStrings)
{
    TemporaryText const text("a\nb,c,d\n\ne,");
    EXPECT_EQ(shown(ZyVariantTable(text.path().path(), true)),
              "s:a | s: | s: / s:b | s:c | s:d / s: | s: | s: / s:e | s: | s:");
}

TEST(ZyVariantTablePath, TakesTheSpellingOfTheSystemToo)
{
    TemporaryText const text("1");
    std::string const path = text.path().path().replaced("\\", "/", ZyString::CaseSensitive).toStdString();
    EXPECT_EQ(shown(ZyVariantTable(ZyString(path), true)), "i:1");
}

TEST(ZyVariantTablePath, ThrowsWhenTheFileCannotBeOpened)
{
    EXPECT_ZY_THROW(ZyVariantTable("no-such-directory/text.csv", true), ZyCannotOpenFileException,
                    "Cannot open file: no-such-directory/text.csv");
    EXPECT_ZY_THROW(ZyVariantTable("", true), ZyCannotOpenFileException, "Cannot open file: ");
    try {
        ZyVariantTable const table("no-such-directory/text.csv", true);
        ADD_FAILURE();
    } catch (ZyFileException const & e) {
        EXPECT_EQ(e.path1().path().toStdString(), "no-such-directory\\text.csv");
    }
}

TEST(ZyVariantTablePath, RefusesADirectory)
{
    ZyTemporaryDir const directory;
    ZyString const path = directory.path().path();
    EXPECT_ZY_THROW(ZyVariantTable(path, true), ZyCannotOpenFileException,
                    "Cannot open file: " + path.toStdString());
}

TEST(ZyVariantTablePath, KeepsBytesThatAreNoText)
{
    TemporaryText const text(bytes("\xFF\xFE\0,\xC3\x28,\x01\n", 8));
    ZyVariantTable const table(text.path().path(), true);
    EXPECT_EQ(table.at(0, 0).asString().toStdString(), bytes("\xFF\xFE\0", 3));
    EXPECT_EQ(table.at(0, 1).asString().toStdString(), "\xC3\x28");
    EXPECT_EQ(table.at(0, 2).asString().toStdString(), "\x01");
}

TEST(ZyVariantTablePath, TakesALineOfSeveralMegabytes)
{
    TemporaryText const text(std::string(1000000, 'x') + "," + std::string(2000000, 'y') + "\n1");
    ZyVariantTable const table(text.path().path(), true);
    ASSERT_EQ(table.numberRows(), 2u);
    EXPECT_EQ(table.at(0, 0).asString().size(), 1000000u);
    EXPECT_EQ(table.at(0, 1).asString().size(), 2000000u);
    EXPECT_EQ(table.at(1, 0), ZyVariant(1));
}

class ZyVariantTableLocale : public testing::TestWithParam<char const *>
{};

TEST_P(ZyVariantTableLocale, ReadsAndWritesNumbersAsTheCLocaleDoes)
{
    if (!GlobalLocale::Exists(GetParam())) {
        GTEST_SKIP() << "no such locale here";
    }
    TemporaryText const text("1.5,\"2,5\",1234567.5,7\n");
    GlobalLocale const guard{std::locale(GetParam())};
    ZyFile file(text.path());
    ZyVariantTable const table = ZyVariantTable::LoadCSV(file, true);
    EXPECT_EQ(shown(table), "d:1.5 | s:2,5 | d:1.23457e+06 | i:7");
    EXPECT_EQ(table.at(0, 2).asDouble(), 1234567.5);
    EXPECT_EQ(table.toString().toStdString(), "1.5\t2,5\t1.23457e+06\t7\t\n");
    EXPECT_EQ(shown(ZyVariantTable(text.path().path(), true)), "d:1.5 | s:\"2 | s:5\" | d:1.23457e+06 | i:7");
}

INSTANTIATE_TEST_SUITE_P(Locales, ZyVariantTableLocale, testing::Values("C", "de_DE.UTF-8", "tr_TR.UTF-8"),
                         [](testing::TestParamInfo<char const *> const & example) {
                             return std::string(example.param).substr(0, example.param[1] == '\0' ? 1 : 2);
                         });

TEST(ZyVariantTableWhiteSpace, IsWhatTheGlobalLocaleSays)
{
    TemporaryText const text("_a_,_7,__,7_\n");
    GlobalLocale const guard(std::locale(std::locale::classic(), new UnderscoreIsSpace));
    // The tests skip the locale's white space, the conversion that of the C locale: a blank in front that
    // only the former knows makes 0 of a number, and so no integer of it.
    EXPECT_EQ(shown(ZyVariantTable(text.path().path(), true)), "s:a | d:0 | s: | i:7");
    ZyFile file(text.path());
    EXPECT_EQ(loaded(file, true), "s:a | i:7 | s: | i:7");
}
