// SPDX-License-Identifier: BSD-3-Clause
// Opening, listing and closing archives, and the bytes that they are made of.
#include <ZyException.h>
#include <ZyFileException.h>
#include <ZyZipArchive.h>
#include <ZyZipFile.h>

#include "ThrowsMessage.h"
#include "ZipSupport.h"

#include <minizip/unzip.h>
#include <minizip/zip.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <type_traits>

static_assert(ZyZipArchive::Read == 0 && ZyZipArchive::Write == 1);
static_assert(ZyZipArchive::Store == 0 && ZyZipArchive::Fastest == 1 && ZyZipArchive::Best == 2 &&
              ZyZipArchive::DefaultLevel == 3);
static_assert(ZyZipArchive::Native == 0 && ZyZipArchive::Portable == 1);
static_assert(sizeof(ZyZipArchive) == 2 * sizeof(void *), "the virtual table and the state");
static_assert(std::has_virtual_destructor_v<ZyZipArchive>);
static_assert(!std::is_copy_constructible_v<ZyZipArchive> && !std::is_copy_assignable_v<ZyZipArchive>);
static_assert(!std::is_move_constructible_v<ZyZipArchive> && !std::is_move_assignable_v<ZyZipArchive>);
static_assert(std::is_standard_layout_v<ZyZipArchive_Internal>);
static_assert(offsetof(ZyZipArchive_Internal, zip) == 0 &&
              offsetof(ZyZipArchive_Internal, unzip) == sizeof(void *));

namespace
{

using namespace std::string_literals;

class ZyZipArchiveTest : public ZipTest
{
public:
    static void add(ZyZipArchive & archive, char const * name, std::string const & text,
                    ZyZipArchive::Compression compression = ZyZipArchive::DefaultLevel)
    {
        archive.open(name, compression).lock()->write(ZyString(text));
    }

    static std::string content(ZyZipArchive & archive, ZyFilePath const & name)
    {
        return archive.open(name, ZyZipArchive::DefaultLevel).lock()->readRemaining().toStdString();
    }

    static std::vector<std::string> names(ZyZipArchive const & archive)
    {
        ZyDeque<ZyFilePath> const paths = archive.paths();
        std::vector<std::string> result;
        for (ZyFilePath const & name : paths.std_deque()) {
            result.push_back(name.path().toStdString());
        }
        return result;
    }

    static std::string openWords(ZyZipArchive & archive, ZyFilePath const & name)
    {
        try {
            archive.open(name, ZyZipArchive::DefaultLevel);
        } catch (ZyInvalidParameterException const & failure) {
            return failure.what();
        }
        return "opened";
    }

    void writeSmall(ZyZipArchive::EntryNames entryNames) const
    {
        ZyZipArchive archive(path("small.zip"), ZyZipArchive::Write, entryNames);
        add(archive, "a/b.txt", "hello");
    }
};

// One entry of five letters: local header, data, record of the directory, end record. The date field is 20
// 00, as the zip library makes it of an unset date. S stands for the separator.
std::string smallArchive(char separator)
{
    std::string const name = "a"s + separator + "b.txt";
    std::string const common =
        "\x14\x00\x00\x00\x08\x00\x00\x00\x20\x00"s // version, flags, method, time, date
        + "\x86\xa6\x10\x36\x07\x00\x00\x00\x05\x00\x00\x00\x07\x00\x00\x00"s;
    std::string const data = "\xcbH\xcd\xc9\xc9\x07\x00"s;
    return "PK\x03\x04"s + common + name + data + "PK\x01\x02\x00\x00"s + common +
           "\x00\x00\x00\x00\x01\x00\x00\x00\x00\x00\x00\x00\x00\x00"s + name + // 1: looks like text
           "PK\x05\x06\x00\x00\x00\x00\x01\x00\x01\x00\x35\x00\x00\x00\x2c\x00\x00\x00\x00\x00"s;
}

} // namespace

TEST_F(ZyZipArchiveTest, WritesExactlyTheseBytes)
{
    writeSmall(ZyZipArchive::Native);
    EXPECT_EQ(text("small.zip"), smallArchive('\\'));
}

TEST_F(ZyZipArchiveTest, WritesTheSameBytesInThePortableFormButForTheSlashes)
{
    writeSmall(ZyZipArchive::Portable);
    EXPECT_EQ(text("small.zip"), smallArchive('/'));
}

TEST_F(ZyZipArchiveTest, Deliberate_backslash_entry_names)
{
    writeSmall(ZyZipArchive::Native);
    EXPECT_EQ(python("print(zipfile.ZipFile(path).namelist())", "small.zip"), "['a\\\\b.txt']\n");
    writeSmall(ZyZipArchive::Portable);
    EXPECT_EQ(python("print(zipfile.ZipFile(path).namelist())", "small.zip"), "['a/b.txt']\n");
}

TEST_F(ZyZipArchiveTest, Deliberate_zero_entry_date)
{
    writeSmall(ZyZipArchive::Native);
    EXPECT_EQ(python("print(zipfile.ZipFile(path).infolist()[0].date_time)", "small.zip"),
              "(1980, 1, 0, 0, 0, 0)\n");
}

TEST_F(ZyZipArchiveTest, Deliberate_store_is_deflate)
{
    {
        ZyZipArchive archive(path("levels.zip"), ZyZipArchive::Write);
        for (int level = 0; level < 5; ++level) {
            add(archive, ("level" + std::to_string(level)).c_str(), std::string(1000, 'x'),
                static_cast<ZyZipArchive::Compression>(level));
        }
    }
    EXPECT_EQ(python("print([i.compress_type for i in zipfile.ZipFile(path).infolist()])", "levels.zip"),
              "[8, 8, 8, 8, 8]\n");
    EXPECT_EQ(python("print(zipfile.ZipFile(path).infolist()[0].compress_size)", "levels.zip"), "1005\n");
}

TEST_F(ZyZipArchiveTest, GivesEachCompressionItsDeflateLevel)
{
    std::string text;
    for (unsigned int i = 0, state = 1; i < 20000; ++i) {
        state = state * 1103515245U + 12345U;
        text += static_cast<char>('a' + (state >> 16) % 7);
    }
    {
        ZyZipArchive archive(path("levels.zip"), ZyZipArchive::Write);
        for (int level = 0; level < 5; ++level) {
            add(archive, ("level" + std::to_string(level)).c_str(), text,
                static_cast<ZyZipArchive::Compression>(level));
        }
    }
    // Another program deflates the same text at the levels that are meant.
    EXPECT_EQ(python(R"(
import zlib
archive = zipfile.ZipFile(path)
def deflated(text, level):
    machine = zlib.compressobj(level, zlib.DEFLATED, -15, 8)
    return len(machine.compress(text) + machine.flush())
for info, level in zip(archive.infolist(), [0, 1, 9, -1, -1]):
    print(info.compress_size == deflated(archive.read(info), level), end=' ')
)",
                     "levels.zip"),
              "True True True True True ");
}

TEST_F(ZyZipArchiveTest, ReadsBackWhatItWrote)
{
    for (auto const form : {ZyZipArchive::Native, ZyZipArchive::Portable}) {
        {
            ZyZipArchive archive(path("x.zip"), ZyZipArchive::Write, form);
            EXPECT_EQ(archive.mode(), ZyZipArchive::Write);
            add(archive, "one.txt", "first");
            add(archive, "sub/two.txt", "a\0b"s);
            add(archive, "empty", "");
        }
        ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read, form);
        EXPECT_EQ(archive.mode(), ZyZipArchive::Read);
        EXPECT_EQ(names(archive), (std::vector<std::string>{"one.txt", "sub\\two.txt", "empty"}));
        EXPECT_EQ(content(archive, "sub/two.txt"), "a\0b"s);
        EXPECT_EQ(content(archive, "one.txt"), "first");
        EXPECT_EQ(content(archive, "empty"), "");
    }
}

TEST_F(ZyZipArchiveTest, LetsAnotherProgramReadContents)
{
    {
        ZyZipArchive archive(path("x.zip"), ZyZipArchive::Write, ZyZipArchive::Portable);
        add(archive, "sub/deep/a.txt", std::string(100000, 'y'));
        add(archive, "b.bin", "\0\xff\0"s);
    }
    EXPECT_EQ(
        python("z = zipfile.ZipFile(path)\nprint(z.testzip(), z.read('sub/deep/a.txt') == b'y' * 100000, "
               "z.read('b.bin'))",
               "x.zip"),
        "None True b'\\x00\\xff\\x00'\n");
}

TEST_F(ZyZipArchiveTest, MarksNamesAsUtf8InThePortableFormOnly)
{
    char const * const show = "i = zipfile.ZipFile(path).infolist()\n"
                              "print([(f.filename, f.flag_bits) for f in i])";
    {
        ZyZipArchive archive(path("x.zip"), ZyZipArchive::Write, ZyZipArchive::Portable);
        add(archive,
            "Gr\xc3\xb6\xc3\x9f"
            "e.txt",
            "1");
        add(archive, "plain.txt", "2");
        add(archive, "broken\xff.txt", "3");
    }
    EXPECT_EQ(python(show, "x.zip"), "[('Gr\xc3\xb6\xc3\x9f"
                                     "e.txt', 2048), ('plain.txt', 0), ('broken\\xa0.txt', 0)]\n");
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read, ZyZipArchive::Portable);
    EXPECT_EQ(content(archive, "Gr\xc3\xb6\xc3\x9f"
                               "e.txt"),
              "1");
    {
        ZyZipArchive native(path("y.zip"), ZyZipArchive::Write);
        add(native,
            "Gr\xc3\xb6\xc3\x9f"
            "e.txt",
            "1");
    }
    EXPECT_EQ(python("f = zipfile.ZipFile(path).infolist()[0]\n"
                     "print(f.flag_bits, f.filename.encode('cp437').decode('utf-8'))",
                     "y.zip"),
              "0 Gr\xc3\xb6\xc3\x9f"
              "e.txt\n");
}

TEST_F(ZyZipArchiveTest, ExpiresTheFirstEntryWhenASecondIsOpened)
{
    makeArchive("x.zip", {{"a", "1"}, {"b", "2"}});
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    ZyWeakPtr<ZyZipFile> const first = archive.open("a", ZyZipArchive::DefaultLevel);
    EXPECT_FALSE(first.expired());
    ZyWeakPtr<ZyZipFile> const second = archive.open("b", ZyZipArchive::DefaultLevel);
    EXPECT_TRUE(first.expired());
    EXPECT_FALSE(second.expired());
    archive.close();
    EXPECT_TRUE(second.expired());
}

TEST_F(ZyZipArchiveTest, CutsOffAHeldEntryWhenASecondIsOpened)
{
    makeArchive("x.zip", {{"a", "1"}, {"b", "2"}});
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    ZySharedPtr<ZyZipFile> const first = archive.open("a", ZyZipArchive::DefaultLevel).lock();
    ZySharedPtr<ZyZipFile> const second = archive.open("b", ZyZipArchive::DefaultLevel).lock();
    EXPECT_ZY_THROW(first->read(1), ZyInvalidCallException,
                    "ZyZipFile cannot be read from as it is not the active file");
    EXPECT_EQ(second->read(1), "2");
}

TEST_F(ZyZipArchiveTest, EndsTheActiveEntryWhenPathsAreAsked)
{
    makeArchive("x.zip", {{"a", "1"}});
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    ZyWeakPtr<ZyZipFile> const entry = archive.open("a", ZyZipArchive::DefaultLevel);
    EXPECT_EQ(archive.paths().size(), 1U);
    EXPECT_TRUE(entry.expired());
}

TEST_F(ZyZipArchiveTest, SaysThatANameIsNotThere)
{
    makeArchive("x.zip", {{"a", "1"}});
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    EXPECT_ZY_THROW(archive.open("sub/b.txt", ZyZipArchive::DefaultLevel), ZyInvalidParameterException,
                    "Cannot open zip archive file: Unzip end of list of file in sub\\b.txt");
    archive.paths();
    EXPECT_ZY_THROW(archive.open("sub/b.txt", ZyZipArchive::DefaultLevel), ZyInvalidParameterException,
                    "Cannot open zip archive file: Unzip end of list of file in sub\\b.txt");
    EXPECT_EQ(content(archive, "a"), "1");
}

TEST_F(ZyZipArchiveTest, DoesNotOpenTheFormerEntryAfterAFailedLookup)
{
    makeArchive("x.zip", {{"a", "1"}, {"b", "2"}});
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    EXPECT_EQ(content(archive, "a"), "1");
    EXPECT_NE(openWords(archive, "missing"), "opened");
    EXPECT_EQ(content(archive, "b"), "2");
}

TEST_F(ZyZipArchiveTest, Deliberate_any_open_error_is_zip_failure)
{
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Write);
    std::string const longName(70000, 'n');
    EXPECT_ZY_THROW(archive.open(ZyFilePath(longName), ZyZipArchive::DefaultLevel),
                    ZyInvalidParameterException, "Cannot open zip archive file: Zip failure in " + longName);
    archive.close();
    EXPECT_ZY_THROW(archive.open("a", ZyZipArchive::DefaultLevel), ZyInvalidParameterException,
                    "Cannot open zip archive file: Zip failure in a");
}

TEST_F(ZyZipArchiveTest, KeepsTheEntriesAroundARefusedName)
{
    {
        ZyZipArchive archive(path("x.zip"), ZyZipArchive::Write);
        add(archive, "a", "1");
        EXPECT_NE(openWords(archive, ZyFilePath(std::string(70000, 'n'))), "opened");
        add(archive, "b", "2");
    }
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    EXPECT_EQ(names(archive), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(content(archive, "a"), "1");
    EXPECT_EQ(content(archive, "b"), "2");
}

TEST_F(ZyZipArchiveTest, WritesLongNamesThatCannotBeOpened)
{
    std::string const longest(255, 'm');
    std::string const longer(256, 'n');
    {
        ZyZipArchive archive(path("x.zip"), ZyZipArchive::Write);
        add(archive, longest.c_str(), "1");
        add(archive, longer.c_str(), "2");
    }
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    for (int round = 0; round < 2; ++round) { // without and with the index that paths() makes
        EXPECT_EQ(content(archive, ZyFilePath(longest)), "1");
        EXPECT_EQ(openWords(archive, ZyFilePath(longer)),
                  "Cannot open zip archive file: Unzip param error in " + longer);
        EXPECT_EQ(archive.paths().size(), 2U);
    }
}

TEST_F(ZyZipArchiveTest, CutsNamesThatFillTheBuffer)
{
    makeArchive(
        "x.zip",
        {{std::string(32767, 'a'), ""}, {std::string(32768, 'b'), ""}, {std::string(65535, 'c'), ""}});
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    EXPECT_EQ(names(archive), (std::vector<std::string>{std::string(32767, 'a'), std::string(32768, 'b'),
                                                        std::string(32768, 'c')}));
}

TEST_F(ZyZipArchiveTest, FindsTheFirstOfEqualNames)
{
    makeArchive("x.zip", {{"a", "first"}, {"a", "second"}});
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    EXPECT_EQ(content(archive, "a"), "first");
    EXPECT_EQ(names(archive), (std::vector<std::string>{"a", "a"}));
    EXPECT_EQ(content(archive, "a"), "first");
}

TEST_F(ZyZipArchiveTest, ListsNamesInNormalForm)
{
    makeArchive("x.zip", {{" a ", "1"}, {"b/c", "2"}, {"d\\\\e", "3"}, {"f/", ""}, {"", "4"}});
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    EXPECT_EQ(names(archive), (std::vector<std::string>{"a", "b\\c", "d\\e", "f\\", ""}));
    for (char const * const name : {"a", "b/c", "d/e", "f/"}) {
        EXPECT_EQ(openWords(archive, name), "Cannot open zip archive file: Unzip end of list of file in " +
                                                ZyFilePath(name).path().toStdString());
    }
    EXPECT_EQ(content(archive, ""), "4");
}

TEST_F(ZyZipArchiveTest, FindsEitherSpellingInThePortableForm)
{
    makeArchive("x.zip", {{"a/b", "1"}, {"c\\d", "2"}, {"e/f\\g", "3"}});
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read, ZyZipArchive::Portable);
    EXPECT_EQ(content(archive, "a/b"), "1");
    EXPECT_EQ(content(archive, "c\\d"), "2");
    EXPECT_EQ(content(archive, "e\\f/g"), "3");
    EXPECT_EQ(names(archive), (std::vector<std::string>{"a\\b", "c\\d", "e\\f\\g"}));
    EXPECT_EQ(content(archive, "a/b"), "1");
    EXPECT_EQ(openWords(archive, "x"), "Cannot open zip archive file: Unzip end of list of file in x");
}

TEST_F(ZyZipArchiveTest, ThrowsWhenTheArchiveIsMissing)
{
    EXPECT_ZY_THROW(ZyZipArchive(path("none.zip"), ZyZipArchive::Read), ZyFileNotFoundException,
                    "File not found: " + path("none.zip").path().toStdString());
    EXPECT_ZY_THROW(ZyZipArchive("", ZyZipArchive::Read), ZyFileNotFoundException, "File not found: ");
}

TEST_F(ZyZipArchiveTest, ThrowsWhenTheFileIsNoArchive)
{
    setText("empty.zip", "");
    setText("junk.zip", std::string(1000, 'j'));
    for (char const * const name : {"empty.zip", "junk.zip", "."}) {
        EXPECT_ZY_THROW(ZyZipArchive(path(name), ZyZipArchive::Read), ZyInvalidPathException,
                        "Invalid path: " + path(name).path().toStdString());
    }
}

TEST_F(ZyZipArchiveTest, CannotReadAnArchiveWithoutEntries)
{
    ZyZipArchive(path("x.zip"), ZyZipArchive::Write).close();
    EXPECT_EQ(text("x.zip"), "PK\x05\x06"s + std::string(18, '\0'));
    EXPECT_ZY_THROW(ZyZipArchive(path("x.zip"), ZyZipArchive::Read), ZyInvalidPathException,
                    "Invalid path: " + path("x.zip").path().toStdString());
    setText("junk.zip", std::string(100, 'j') + text("x.zip"));
    EXPECT_TRUE(ZyZipArchive(path("junk.zip"), ZyZipArchive::Read).paths().isEmpty());
}

TEST_F(ZyZipArchiveTest, ThrowsWhenTheArchiveCannotBeCreated)
{
    for (ZyFilePath const & target : {path("."), path("missing/x.zip"), path("x/"), ZyFilePath("")}) {
        EXPECT_ZY_THROW(ZyZipArchive(target, ZyZipArchive::Write), ZyInvalidPathException,
                        "Invalid path: " + target.path().toStdString());
    }
}

TEST_F(ZyZipArchiveTest, TruncatesAnExistingFileAtOnce)
{
    setText("x.zip", "something else");
    ZyZipArchive const archive(path("x.zip"), ZyZipArchive::Write);
    EXPECT_EQ(text("x.zip"), "");
}

TEST_F(ZyZipArchiveTest, ThrowsOnAnUnknownMode)
{
    setText("x.zip", "kept");
    EXPECT_ZY_THROW(ZyZipArchive(path("x.zip"), static_cast<ZyZipArchive::Mode>(2)),
                    ZyInvalidParameterException, "Unknown mode for zip/unzip");
    EXPECT_EQ(text("x.zip"), "kept");
}

TEST_F(ZyZipArchiveTest, ThrowsWhenPathsAreAskedWhileWriting)
{
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Write);
    ZySharedPtr<ZyZipFile> const entry = archive.open("a", ZyZipArchive::DefaultLevel).lock();
    EXPECT_ZY_THROW(archive.paths(), ZyInvalidCallException, "Zip paths cannot be returned in write mode");
    EXPECT_EQ(entry->write("still open"), 10U);
}

TEST_F(ZyZipArchiveTest, ClosesTwiceWithoutHarm)
{
    makeArchive("x.zip", {{"a", "1"}});
    ZyZipArchive reader(path("x.zip"), ZyZipArchive::Read);
    EXPECT_NE(reader.internal().unzip, nullptr);
    EXPECT_EQ(reader.internal().zip, nullptr);
    reader.close();
    reader.close();
    EXPECT_EQ(reader.internal().unzip, nullptr);
    EXPECT_TRUE(reader.paths().isEmpty());
    EXPECT_EQ(openWords(reader, "a"), "Cannot open zip archive file: Unzip param error in a");

    ZyZipArchive writer(path("y.zip"), ZyZipArchive::Write);
    EXPECT_NE(writer.internal().zip, nullptr);
    EXPECT_EQ(writer.internal().unzip, nullptr);
    add(writer, "a", "1");
    writer.close();
    std::string const closed = text("y.zip");
    writer.close();
    EXPECT_EQ(writer.internal().zip, nullptr);
    EXPECT_EQ(text("y.zip"), closed);
}

TEST_F(ZyZipArchiveTest, IsNoArchiveBeforeItIsClosed)
{
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Write);
    add(archive, "a", "1");
    EXPECT_ZY_THROW(ZyZipArchive(path("x.zip"), ZyZipArchive::Read), ZyInvalidPathException,
                    "Invalid path: " + path("x.zip").path().toStdString());
    archive.close();
    EXPECT_EQ(ZyZipArchive(path("x.zip"), ZyZipArchive::Read).paths().size(), 1U);
}

TEST_F(ZyZipArchiveTest, TellsTheWordsOfTheReadingSide)
{
    makeArchive("x.zip", {{"a", "1"}});
    ZyZipArchive const archive(path("x.zip"), ZyZipArchive::Read);
    EXPECT_EQ(archive.errorMessage(-100).toStdString(), "Unzip end of list of file");
    EXPECT_EQ(archive.errorMessage(-102).toStdString(), "Unzip param error");
    EXPECT_EQ(archive.errorMessage(-103).toStdString(), "Unzip bad zip file");
    EXPECT_EQ(archive.errorMessage(-104).toStdString(), "Unzip internal error");
    EXPECT_EQ(archive.errorMessage(-105).toStdString(), "Unzip CRC error");
}

TEST_F(ZyZipArchiveTest, Deliberate_unzip_faliure)
{
    makeArchive("x.zip", {{"a", "1"}});
    ZyZipArchive const archive(path("x.zip"), ZyZipArchive::Read);
    for (int const code : {-101, -1, -3, -5, 0, 1, -106, 2147483647}) {
        EXPECT_EQ(archive.errorMessage(code).toStdString(), "Unzip faliure") << code;
    }
}

TEST_F(ZyZipArchiveTest, TellsTheWordsOfTheWritingSide)
{
    ZyZipArchive const archive(path("x.zip"), ZyZipArchive::Write);
    EXPECT_EQ(archive.errorMessage(-102).toStdString(), "Zip param error");
    EXPECT_EQ(archive.errorMessage(-103).toStdString(), "Zip bad zip file");
    EXPECT_EQ(archive.errorMessage(-104).toStdString(), "Zip internal error");
    for (int const code : {-100, -101, -105, -1, 0, 1}) {
        EXPECT_EQ(archive.errorMessage(code).toStdString(), "Zip failure") << code;
    }
}

TEST_F(ZyZipArchiveTest, OpensNothingWhenTheDirectoryIsDamaged)
{
    makeArchive("x.zip", {{"one", "1"}, {"two", "2"}, {"three", "3"}});
    std::string const whole = text("x.zip");
    std::string damaged = whole;
    damaged[whole.find("PK\x01\x02", whole.find("PK\x01\x02") + 1)] = 'X';
    setText("x.zip", damaged);
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    EXPECT_EQ(names(archive), (std::vector<std::string>{"one"}));
    EXPECT_EQ(openWords(archive, "one"), "Cannot open zip archive file: Unzip end of list of file in one");

    damaged = whole;
    damaged[whole.find("PK\x01\x02")] = 'X';
    setText("y.zip", damaged);
    EXPECT_TRUE(ZyZipArchive(path("y.zip"), ZyZipArchive::Read).paths().isEmpty());
}

TEST_F(ZyZipArchiveTest, ReadsMoreEntriesThanTheirCountCanTell)
{
    constexpr unsigned int count = 65540;
    zipFile const zip = zipOpen((directory() / "x.zip").string().c_str(), APPEND_STATUS_CREATE);
    for (unsigned int i = 0; i < count; ++i) {
        zip_fileinfo const info = {};
        std::string const name = std::to_string(i);
        zipOpenNewFileInZip(zip, name.c_str(), &info, nullptr, 0, nullptr, 0, nullptr, 0, 0);
        zipWriteInFileInZip(zip, name.data(), static_cast<unsigned int>(name.size()));
    }
    ASSERT_EQ(zipClose(zip, nullptr), ZIP_OK);
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    ASSERT_EQ(archive.paths().size(), count);
    EXPECT_EQ(content(archive, "0"), "0");
    EXPECT_EQ(content(archive, "65539"), "65539");
    EXPECT_EQ(openWords(archive, "65540"),
              "Cannot open zip archive file: Unzip end of list of file in 65540");
}

TEST_F(ZyZipArchiveTest, CannotOpenWhatTheZipLibraryCannotUnpack)
{
    setText("x.zip", "");
    python("z = zipfile.ZipFile(path, 'w', zipfile.ZIP_LZMA)\nz.writestr('a', 'text')\nz.close()", "x.zip");
    ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
    EXPECT_EQ(openWords(archive, "a"), "Cannot open zip archive file: Unzip bad zip file in a");
}
