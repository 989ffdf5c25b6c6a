// SPDX-License-Identifier: BSD-3-Clause
// A device that keeps every write as it comes and fails on demand.
#pragma once

#include <ZyException.h>
#include <ZyIODevice.h>
#include <ZyString.h>

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

class RecordingDevice : public ZyIODevice
{
public:
    void seek_read(unsigned int) override {}
    void seek_write(unsigned int) override {}
    bool atEnd() const override { return true; }

    std::string text() const
    {
        std::string all;
        for (std::string const & piece : pieces) {
            all += piece;
        }
        return all;
    }

    std::vector<std::string> pieces;
    std::size_t good = std::numeric_limits<std::size_t>::max(); ///< writes that work before all others fail
    int failures = 0;
    int closed = 0;

protected:
    void onClose() override { ++closed; }
    bool onOpen(Mode) override { return true; }
    ZyString onRead(unsigned int) override { return ZyString(); }
    unsigned int onWrite(ZyString const & text) override
    {
        if (pieces.size() >= good) {
            ++failures;
            throw ZyIOException("no room left");
        }
        pieces.push_back(text.toStdString());
        return text.size();
    }
};
