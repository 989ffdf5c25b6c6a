// SPDX-License-Identifier: BSD-3-Clause
// The writer of whole files, over the file of every safe save.
#include <ZyFileWriter.h>

#include "Files/WholeSaveFile_p.h"
#include "Platform/NativePath.h"

#include <ZyFileException.h>
#include <ZyString.h>
#include <ZyTemporaryFile.h>

#include <QFileInfo>

class ZyFileWriter::Private : public ZyPrivateObject
{
public:
    explicit Private(ZyFilePath const & path) : file(QFileInfo(NativePath::qt(path)).absoluteFilePath()) {}

    WholeSaveFile file;
    bool closed = false; ///< nothing sets it, so that every close() commits
};

ZyFileWriter::ZyFileWriter(ZyString const & path) : m_d(new Private(ZyFilePath(path))) {}

ZyFileWriter::ZyFileWriter(ZyTemporaryFile const & file) : m_d(new Private(file.path())) {}

ZyFileWriter::~ZyFileWriter() = default;

void ZyFileWriter::open()
{
    if (!d()->file.open(QIODevice::WriteOnly)) {
        throw ZyFileException("Unable to open file for writing", ZyString(d()->file.fileName()));
    }
    d()->closed = false;
}

void ZyFileWriter::write(ZyString const & text)
{
    d()->file.write(text.c_str());
}

void ZyFileWriter::close()
{
    if (!d()->closed) {
        if (!d()->file.finish()) {
            throw ZyFileSaveException(ZyString(d()->file.errorString()).trim(),
                                      ZyString(d()->file.fileName()));
        }
        d()->closed = false;
    }
}

QIODevice * ZyFileWriter::device() const
{
    return &d()->file;
}
