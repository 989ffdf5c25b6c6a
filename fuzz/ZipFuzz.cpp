// SPDX-License-Identifier: BSD-3-Clause
// Zip archives: an input that begins as an archive is listed, read and unpacked; any other tells the entries
// of an archive that is written and read again. One file, overwritten by each input, in a folder of the
// process's own.
#include <ZyFilePath.h>
#include <ZyZipArchive.h>
#include <ZyZipFile.h>
#include <ZyZipper.h>

#include "Fuzz.h"
#include "ScratchDirectory.h"

#include <minizip/unzip.h>

#include <vector>

namespace
{
/** What is read and unpacked of one archive; a few thousand bytes can unfold to much more. */
constexpr unsigned long long enough = 1 << 20;

ScratchDirectory const & scratch()
{
    static ScratchDirectory const directory;
    return directory;
}

ZyFilePath archivePath()
{
    return ZyFilePath(scratch() / "x.zip");
}

unsigned long long toldSize(ZyZipArchive const & archive)
{
    unz_file_info64 info = {};
    Fuzz::require(unzGetCurrentFileInfo64(archive.internal().unzip, &info, nullptr, 0, nullptr, 0, nullptr,
                                          0) == UNZ_OK,
                  "an open entry has its record");
    return info.uncompressed_size;
}

/** Reads an entry; returns its bytes, of which there are never more than told. */
std::string readEntry(ZyZipArchive & archive, ZyFilePath const & name, unsigned int block)
{
    ZySharedPtr<ZyZipFile> const entry = archive.open(name, ZyZipArchive::DefaultLevel).lock();
    Fuzz::require(static_cast<bool>(entry), "an entry that opens is active");
    unsigned long long const told = toldSize(archive);
    std::string content;
    while (!entry->atEnd() && content.size() < enough) {
        ZyString const piece = entry->read(block);
        Fuzz::require(piece.size() > 0 && piece.size() <= block, "a read that fits and goes on");
        content += piece.toStdString();
    }
    Fuzz::require(content.size() == told || (content.size() < told && content.size() >= enough),
                  "all that is told, or an exception");
    return content;
}

/** Reads all entries; returns how much that was. */
unsigned long long readAll(ZyZipArchive::EntryNames form, unsigned int block)
{
    ZyZipArchive archive(archivePath(), ZyZipArchive::Read, form);
    ZyDeque<ZyFilePath> const names = archive.paths();
    unsigned long long total = 0;
    for (ZyFilePath const & name : names.std_deque()) {
        static_cast<void>(Fuzz::failureOf([&] { total += readEntry(archive, name, block).size(); }));
        if (total >= enough) {
            break;
        }
    }
    return total;
}

void checkNothingOutside()
{
    for (auto const & entry : std::filesystem::directory_iterator(scratch().path())) {
        std::string const name = entry.path().filename().string();
        Fuzz::require(name == "x.zip" || name == "out", "nothing lies outside of the target");
    }
}

void unpack(ZyZipArchive::EntryNames form)
{
    unsigned long long last = 0;
    static_cast<void>(Fuzz::failureOf([&] {
        ZyZipper::Unzip(
            archivePath(), ZyFilePath(scratch() / "out/"),
            [&](unsigned long long done, unsigned long long) {
                Fuzz::require(done >= last, "progress goes forward");
                last = done;
                return done < enough;
            },
            form);
    }));
    checkNothingOutside();
    std::filesystem::remove_all(scratch().path() / "out");
}

void readArchive(std::string const & bytes)
{
    scratch().write("x.zip", bytes);
    for (ZyZipArchive::EntryNames const form : {ZyZipArchive::Native, ZyZipArchive::Portable}) {
        unsigned long long total = 0;
        static_cast<void>(Fuzz::failureOf([&] { total = readAll(form, 100); }));
        if (total < enough) {
            unpack(form);
        }
    }
}

struct Entry
{
    ZyFilePath name;
    std::string content;
    ZyZipArchive::Compression level;
};

/** What the input tells: a name of its own for each entry, a content that may repeat itself. */
std::vector<Entry> entriesOf(Fuzz::Input & input)
{
    std::vector<Entry> entries;
    while (!input.isEmpty() && entries.size() < 20) {
        std::string name =
            "n" + std::to_string(entries.size()) + "_" + std::string(input.text(input.byte() % 200));
        name = name.substr(0, name.find('\0'));
        auto const level = static_cast<ZyZipArchive::Compression>(input.byte() % 4);
        int const times = 1 + input.byte() % 8;
        std::string const piece(input.text(input.byte()));
        std::string content;
        for (int i = 0; i < times; ++i) {
            content += piece;
        }
        ZyFilePath const path(name);
        bool const isNew = std::none_of(entries.begin(), entries.end(),
                                        [&path](Entry const & entry) { return entry.name == path; });
        if (isNew) { // of two entries of one name, opening finds the first
            entries.push_back({path, content, level});
        }
    }
    return entries;
}

void writeArchive(std::vector<Entry> const & entries, ZyZipArchive::EntryNames form)
{
    ZyZipArchive archive(archivePath(), ZyZipArchive::Write, form);
    for (Entry const & entry : entries) {
        ZySharedPtr<ZyZipFile> const file = archive.open(entry.name, entry.level).lock();
        Fuzz::require(file->write(ZyString(entry.content)) == entry.content.size(), "all is written");
    }
    archive.close();
}

void writeAndRead(Fuzz::Input & input)
{
    ZyZipArchive::EntryNames const form =
        input.byte() % 2 == 0 ? ZyZipArchive::Native : ZyZipArchive::Portable;
    unsigned int const block = 1u + input.byte();
    std::vector<Entry> const entries = entriesOf(input);
    if (entries.empty()) {
        return;
    }
    writeArchive(entries, form);
    ZyZipArchive archive(archivePath(), ZyZipArchive::Read, form);
    ZyDeque<ZyFilePath> const names = archive.paths();
    Fuzz::require(names.size() == entries.size(), "as many entries as written");
    for (std::size_t i = 0; i < entries.size(); ++i) {
        ZyFilePath const & name = names.at(static_cast<unsigned int>(i));
        Fuzz::require(name.path().toStdString() == entries[i].name.path().toStdString(), "names in order");
        Fuzz::require(readEntry(archive, name, block) == entries[i].content, "the content");
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    Fuzz::Input input(data, size);
    if (Fuzz::startsWith(Fuzz::Input(data, size).text(2), "PK")) {
        readArchive(std::string(input.rest()));
    } else {
        writeAndRead(input);
    }
    return 0;
}
