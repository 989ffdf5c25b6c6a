// SPDX-License-Identifier: BSD-3-Clause
// Reading and writing the active entry.
#include <ZyException.h>
#include <ZyZipArchive.h>
#include <ZyZipFile.h>

#include "ThrowsMessage.h"
#include "ZipSupport.h"

#include <minizip/unzip.h>
#include <minizip/zip.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <type_traits>

static_assert(sizeof(ZyZipFile) == sizeof(ZyIODevice) + sizeof(void *), "the state behind the device");
static_assert(std::is_base_of_v<ZyIODevice, ZyZipFile>);
static_assert(!std::is_copy_constructible_v<ZyZipFile> && !std::is_copy_assignable_v<ZyZipFile>);
static_assert(!std::is_default_constructible_v<ZyZipFile>, "only an archive makes entries");

namespace
{

using namespace std::string_literals;

class ZyZipFileTest : public ZipTest
{
public:
    using Entry = ZySharedPtr<ZyZipFile>;

    static Entry open(ZyZipArchive & archive, char const * name = "a")
    {
        return archive.open(name, ZyZipArchive::DefaultLevel).lock();
    }

    // An archive with one entry "a".
    void make(std::string const & content) const { makeArchive("x.zip", {{"a", content}}); }

    ZyZipArchive & reader()
    {
        m_archive.reset();
        m_archive.reset(new ZyZipArchive(path("x.zip"), ZyZipArchive::Read));
        return *m_archive;
    }

    ZyZipArchive & writer()
    {
        m_archive.reset();
        m_archive.reset(new ZyZipArchive(path("x.zip"), ZyZipArchive::Write));
        return *m_archive;
    }

private:
    ZyUniquePtr<ZyZipArchive> m_archive;
};

std::string numbers(std::size_t size)
{
    std::string text;
    for (unsigned int i = 0; text.size() < size; ++i) {
        text += std::to_string(i) + (i % 7 == 0 ? "\n" : ",");
    }
    text.resize(size);
    return text;
}

// Little-endian, as sizes stand in an archive.
std::string bytes(unsigned int number)
{
    std::string result;
    for (int i = 0; i < 4; ++i) {
        result += static_cast<char>(number >> (8 * i) & 0xFF);
    }
    return result;
}

// Replaces the two fields of an entry's sizes, in its header and in the directory.
std::string withSizes(std::string archive, unsigned int packed, unsigned int plain, unsigned int newPacked,
                      unsigned int newPlain)
{
    std::string const from = bytes(packed) + bytes(plain);
    int replaced = 0;
    for (std::size_t at = 0; (at = archive.find(from, at)) != std::string::npos; at += from.size()) {
        archive.replace(at, from.size(), bytes(newPacked) + bytes(newPlain));
        ++replaced;
    }
    EXPECT_EQ(replaced, 2);
    return archive;
}

} // namespace

TEST_F(ZyZipFileTest, IsOpenInTheModeOfItsArchive)
{
    make("text");
    EXPECT_EQ(open(reader())->mode(), ZyIODevice::Read);
    EXPECT_EQ(open(writer())->mode(), ZyIODevice::Write);
}

TEST_F(ZyZipFileTest, ReadsInPiecesOfAnySize)
{
    std::string const text = numbers(300000);
    make(text);
    for (unsigned int const piece : {7U, 16384U, 65535U, 65536U, 65537U, 131073U, 300000U, 4294967295U}) {
        Entry const entry = open(reader());
        std::string read;
        while (!entry->atEnd()) {
            ZyString const part = entry->read(piece);
            ASSERT_EQ(part.size(), std::min<std::size_t>(piece, text.size() - read.size()));
            read += part.toStdString();
        }
        EXPECT_TRUE(read == text) << piece;
        EXPECT_EQ(entry->read(piece).size(), 0U);
    }
}

TEST_F(ZyZipFileTest, ReadsLinesAndRemainders)
{
    make("one\ntwo\nthree");
    Entry const entry = open(reader());
    EXPECT_EQ(entry->readLine(0), "one\n");
    EXPECT_EQ(entry->readLine(2), "tw");
    EXPECT_EQ(entry->readRemaining(), "o\nthree");
    EXPECT_TRUE(entry->atEnd());
    EXPECT_EQ(entry->readLine(0), "");
    EXPECT_EQ(open(reader())->readAll(), "one\ntwo\nthree");
}

TEST_F(ZyZipFileTest, ReadsZeroBytesAsTheyAre)
{
    std::string const content = "\0a\0\0b\xff"s;
    make(content);
    EXPECT_EQ(open(reader())->read(100).toStdString(), content);
}

TEST_F(ZyZipFileTest, ReadsNothingWhenAskedForNothing)
{
    make("text");
    Entry const entry = open(reader());
    EXPECT_EQ(entry->read(0), "");
    EXPECT_FALSE(entry->atEnd());
    EXPECT_EQ(entry->read(9), "text");
}

TEST_F(ZyZipFileTest, IsAtTheEndOfAnEmptyEntryAtOnce)
{
    make("");
    Entry const entry = open(reader());
    EXPECT_TRUE(entry->atEnd());
    EXPECT_EQ(entry->read(10), "");
    EXPECT_EQ(entry->readAll(), "");
}

TEST_F(ZyZipFileTest, IsAtItsEndUnderWrite)
{
    Entry const entry = open(writer());
    EXPECT_TRUE(entry->atEnd());
    entry->write("text");
    EXPECT_TRUE(entry->atEnd());
}

TEST_F(ZyZipFileTest, WritesAllOfAText)
{
    std::string const content = numbers(200000) + "\0tail"s;
    {
        Entry const entry = open(writer());
        EXPECT_EQ(entry->write(ZyString(content)), content.size());
        EXPECT_EQ(entry->write(""), 0U);
        EXPECT_EQ(entry->write("."), 1U);
    }
    EXPECT_TRUE(open(reader())->readRemaining().toStdString() == content + ".");
}

TEST_F(ZyZipFileTest, CannotBeUsedInTheOtherDirection)
{
    make("text");
    EXPECT_ZY_THROW(open(reader())->write("x"), ZyIOInvalidWriteException, "");
    EXPECT_ZY_THROW(open(writer())->read(1), ZyIOInvalidReadException, "");
}

TEST_F(ZyZipFileTest, FailsWhenReopenedInTheOtherDirection)
{
    make("text");
    Entry entry = open(reader());
    entry->close();
    EXPECT_TRUE(entry->open(ZyIODevice::Write));
    EXPECT_ZY_THROW(entry->write("x"), ZyInvalidCallException, "ZyZipFile write failed: Unzip faliure");
    entry = open(writer());
    entry->close();
    EXPECT_TRUE(entry->open(ZyIODevice::Read));
    EXPECT_ZY_THROW(entry->read(1), ZyInvalidCallException, "ZyZipFile read failed: Zip param error");
}

TEST_F(ZyZipFileTest, GoesOnAfterCloseAndOpen)
{
    make("text");
    Entry const entry = open(reader());
    EXPECT_EQ(entry->read(2), "te");
    entry->close();
    EXPECT_ZY_THROW(entry->read(1), ZyIOInvalidReadException, "");
    EXPECT_TRUE(entry->open(ZyIODevice::Read));
    EXPECT_EQ(entry->read(2), "xt");
}

TEST_F(ZyZipFileTest, CannotBeRestarted)
{
    make("text");
    ZyIODevice & entry = *open(reader());
    EXPECT_NO_THROW(entry.seek_read(0));
    EXPECT_ZY_THROW(entry.seek_read(1), ZyInvalidCallException, "ZyZipFile cannot be restarted");
    EXPECT_ZY_THROW(entry.seek_write(0), ZyInvalidCallException, "ZyZipFile cannot be restarted");
    EXPECT_ZY_THROW(entry.seek_write(1), ZyInvalidCallException, "ZyZipFile cannot be restarted");
    EXPECT_ZY_THROW(entry.restart(), ZyInvalidCallException, "ZyZipFile cannot be restarted");
    EXPECT_EQ(entry.readAll(), "text");
}

TEST_F(ZyZipFileTest, IsCutOffWhenItsArchiveCloses)
{
    make("text");
    ZyZipArchive & archive = reader();
    Entry const entry = open(archive);
    EXPECT_EQ(&entry->archive(), &archive);
    archive.close();
    EXPECT_TRUE(entry->atEnd());
    EXPECT_ZY_THROW(entry->read(1), ZyInvalidCallException,
                    "ZyZipFile cannot be read from as it is not the active file");
    EXPECT_ZY_THROW(entry->archive(), ZyNullPointerException, "ZyZipFile parent archive not set");
    ZyZipFile const & constant = *entry;
    EXPECT_ZY_THROW(constant.archive(), ZyNullPointerException, "ZyZipFile parent archive not set");
    EXPECT_ZY_THROW(entry->path(), ZyNullPointerException, "ZyZipFile parent archive not set");
    entry->close();
    EXPECT_TRUE(entry->path().isNull());
}

TEST_F(ZyZipFileTest, IsCutOffFromWritingByTheNextEntry)
{
    ZyZipArchive & archive = writer();
    Entry const entry = open(archive, "a");
    open(archive, "b");
    EXPECT_ZY_THROW(entry->write("x"), ZyInvalidCallException,
                    "ZyZipFile cannot be written to as it is not the active file");
    EXPECT_TRUE(entry->atEnd());
}

TEST_F(ZyZipFileTest, OutlivesItsArchive)
{
    make("text");
    Entry entry;
    {
        ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read);
        entry = open(archive);
    }
    EXPECT_ZY_THROW(entry->read(1), ZyInvalidCallException,
                    "ZyZipFile cannot be read from as it is not the active file");
}

TEST_F(ZyZipFileTest, TellsThePathOfTheCurrentEntry)
{
    makeArchive("x.zip", {{"sub\\one", "1"}, {"two", "2"}});
    Entry const entry = open(reader(), "sub/one");
    EXPECT_EQ(entry->path().path().toStdString(), "sub\\one");
    EXPECT_TRUE(open(writer())->path().isNull());
}

TEST_F(ZyZipFileTest, Deliberate_zip_path_is_that_of_the_archive)
{
    makeArchive("x.zip", {{"one", "1"}, {"two", "2"}});
    ZyZipArchive & archive = reader();
    Entry const entry = open(archive, "two");
    ASSERT_EQ(unzGoToFirstFile(archive.internal().unzip), UNZ_OK);
    EXPECT_EQ(entry->path().path().toStdString(), "one");
}

TEST_F(ZyZipFileTest, Deliberate_checksum_not_verified_on_read)
{
    make("text");
    std::string archive = text("x.zip");
    std::string const stored = archive.substr(14, 4);
    for (std::size_t at = 0; (at = archive.find(stored, at)) != std::string::npos; ++at) {
        archive[at] = static_cast<char>(archive[at] ^ 1);
    }
    setText("x.zip", archive);
    Entry const entry = open(reader());
    EXPECT_EQ(entry->readRemaining(), "text");
    EXPECT_TRUE(entry->atEnd());
}

TEST_F(ZyZipFileTest, ThrowsWhenDataEndBeforeTheToldSize)
{
    make("text"); // deflates to six bytes
    setText("x.zip", withSizes(text("x.zip"), 6, 4, 6, 1000));
    Entry const entry = open(reader());
    EXPECT_EQ(entry->read(100), "text");
    EXPECT_FALSE(entry->atEnd());
    EXPECT_EQ(entry->read(0), "");
    EXPECT_ZY_THROW(entry->read(100), ZyInvalidCallException, "ZyZipFile read failed: Unzip bad zip file");
    EXPECT_ZY_THROW(open(reader())->readRemaining(), ZyInvalidCallException,
                    "ZyZipFile read failed: Unzip bad zip file");
    EXPECT_ZY_THROW(open(reader())->readLine(0), ZyInvalidCallException,
                    "ZyZipFile read failed: Unzip bad zip file");
}

TEST_F(ZyZipFileTest, ThrowsWhenTheMethodIsNotUnderstood)
{
    setText("x.zip", "");
    python("z = zipfile.ZipFile(path, 'w', zipfile.ZIP_BZIP2)\nz.writestr('a', 'text' * 1000)\nz.close()",
           "x.zip");
    Entry const entry = open(reader());
    EXPECT_ZY_THROW(entry->readRemaining(), ZyInvalidCallException,
                    "ZyZipFile read failed: Unzip bad zip file");
}

TEST_F(ZyZipFileTest, EndsAtAToldSizeThatIsTooSmall)
{
    make("text");
    setText("x.zip", withSizes(text("x.zip"), 6, 4, 6, 2));
    EXPECT_EQ(open(reader())->readRemaining(), "te");
}

TEST_F(ZyZipFileTest, ThrowsWhenThePackedSizeIsTooSmall)
{
    make("text");
    setText("x.zip", withSizes(text("x.zip"), 6, 4, 2, 4));
    EXPECT_ZY_THROW(open(reader())->readRemaining(), ZyInvalidCallException,
                    "ZyZipFile read failed: Unzip faliure");
}

TEST_F(ZyZipFileTest, ThrowsOnBrokenData)
{
    make("text");
    std::string archive = text("x.zip");
    archive[31] = '\x07'; // a block of a kind that does not exist
    setText("x.zip", archive);
    EXPECT_ZY_THROW(open(reader())->read(10), ZyInvalidCallException, "ZyZipFile read failed: Unzip faliure");
}

TEST_F(ZyZipFileTest, ThrowsOnAnEncryptedEntry)
{
    zipFile const zip = zipOpen((directory() / "x.zip").string().c_str(), APPEND_STATUS_CREATE);
    zip_fileinfo const info = {};
    ASSERT_EQ(zipOpenNewFileInZip3(zip, "a", &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED, -1, 0,
                                   -MAX_WBITS, DEF_MEM_LEVEL, Z_DEFAULT_STRATEGY, "secret", 0x3B9CD1A1),
              ZIP_OK);
    std::string const content = numbers(5000);
    zipWriteInFileInZip(zip, content.data(), static_cast<unsigned int>(content.size()));
    zipClose(zip, nullptr);
    EXPECT_ZY_THROW(open(reader())->readRemaining(), ZyInvalidCallException,
                    "ZyZipFile read failed: Unzip faliure");
}

TEST_F(ZyZipFileTest, FailsToWriteAnEntryThatWouldBeginTooLate)
{
    ZyZipArchive & archive = writer();
    open(archive, "a")->write("in time");
    // A hole of 4 GiB: the archive looks as if so much were in it already.
    std::filesystem::resize_file(directory() / "x.zip", 4294967296ULL);
    Entry const late = open(archive, "b");
    EXPECT_EQ(late->write(""), 0U);
    EXPECT_ZY_THROW(late->write("x"), ZyInvalidCallException, "ZyZipFile write failed: Zip failure");
}

TEST_F(ZyZipFileTest, FailsToWriteMoreThanAnEntryHolds)
{
    ZyZipArchive & archive = writer();
    Entry const entry = archive.open("a", ZyZipArchive::Fastest).lock();
    ZyString const piece(std::string(1U << 27, 'x'));
    for (int i = 0; i < 31; ++i) {
        entry->write(piece);
    }
    EXPECT_ZY_THROW(entry->write(ZyString(std::string((1U << 27) - 1, 'x'))), ZyInvalidCallException,
                    "ZyZipFile write failed: Zip failure");
    EXPECT_EQ(entry->write(ZyString(std::string((1U << 27) - 2, 'x'))), (1U << 27) - 2);
    EXPECT_ZY_THROW(entry->write("x"), ZyInvalidCallException, "ZyZipFile write failed: Zip failure");
    archive.close();
    EXPECT_EQ(python("print(zipfile.ZipFile(path).infolist()[0].file_size)", "x.zip"), "4294967294\n");
    EXPECT_EQ(open(reader())->read(3), "xxx");
}

TEST_F(ZyZipFileTest, FailsOnAFullDisk)
{
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "no /dev/full here";
    }
    ZyZipArchive archive("/dev/full", ZyZipArchive::Write);
    Entry const entry = open(archive);
    std::string noise;
    for (unsigned int i = 0, state = 7; i < 1000000; ++i) {
        state = state * 1664525U + 1013904223U;
        noise += static_cast<char>(state >> 24);
    }
    EXPECT_ZY_THROW(entry->write(ZyString(noise)), ZyInvalidCallException,
                    "ZyZipFile write failed: Zip failure");
}
