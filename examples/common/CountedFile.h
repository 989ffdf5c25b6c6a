// SPDX-License-Identifier: BSD-3-Clause
// A file that knows how much it was given.
#pragma once

#include <ZyFile.h>

/** A file that counts what it was given, since a disk that fills up shows in the size of the file alone. */
class CountedFile : public ZyFile
{
public:
    explicit CountedFile(ZyFilePath const & path) : ZyFile(path) { open(ZyIODevice::Write); }
    unsigned long long written() const { return m_written; }

protected:
    unsigned int onWrite(ZyString const & text) override
    {
        m_written += text.size();
        return ZyFile::onWrite(text);
    }

private:
    unsigned long long m_written = 0;
};
