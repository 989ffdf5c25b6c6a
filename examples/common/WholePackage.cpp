// SPDX-License-Identifier: BSD-3-Clause
// The parts of a package and its end.

#include "WholePackage.h"

#include <ZyException.h>
#include <ZyZipArchive.h>
#include <ZyZipFile.h>

#include <QFile>

namespace
{

// The last thing written, and the first that readers look for.
bool endsWithItsRecord(ZyFilePath const & path)
{
    constexpr int size = 22;
    QFile package(path.path().toQString().replace(u'\\', u'/'));
    return package.open(QIODevice::ReadOnly) && package.seek(package.size() - size) &&
           package.read(size).startsWith(QByteArrayLiteral("PK\x05\x06"));
}

bool allPartsEnd(ZyFilePath const & path, unsigned int parts, std::function<void()> const & betweenReads)
{
    ZyZipArchive archive(path, ZyZipArchive::Read, ZyZipArchive::Portable);
    ZyDeque<ZyFilePath> const paths = archive.paths();
    bool complete = paths.size() == parts;
    for (ZyFilePath const & entry : paths.std_deque()) {
        ZySharedPtr<ZyZipFile> const part = archive.open(entry, ZyZipArchive::DefaultLevel).lock();
        ZyString last;
        while (!part->atEnd()) {
            betweenReads();
            last = part->read(65536);
        }
        complete = complete && last.endsWith(">\n");
    }
    return complete;
}

} // namespace

bool isWholeWorkbook(ZyFilePath const & path, unsigned int sheets, std::function<void()> const & betweenReads)
{
    constexpr unsigned int partsBesideSheets = 4;
    try {
        return endsWithItsRecord(path) && allPartsEnd(path, sheets + partsBesideSheets, betweenReads);
    } catch (ZyUserCancelledException const &) {
        throw;
    } catch (ZyException const &) { // whatever is wrong with it, it is not what was written
        return false;
    }
}
