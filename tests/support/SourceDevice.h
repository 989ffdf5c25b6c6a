// SPDX-License-Identifier: BSD-3-Clause
// A device that is read from: its text is made while it is read, comes in pieces of a chosen size, and fails
// on demand.
#pragma once

#include <ZyException.h>
#include <ZyIODevice.h>
#include <ZyString.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <limits>
#include <string>
#include <utility>

class SourceDevice : public ZyIODevice
{
public:
    /** \a make gives the next piece of the text, and an empty one at the end. */
    explicit SourceDevice(std::function<std::string()> make) : m_make(std::move(make)) {}
    /** The text stands already. */
    explicit SourceDevice(std::string text) : m_ahead(std::move(text)) {}
    /** A head, \a count times \a item, and a tail. */
    SourceDevice(std::string head, std::string item, std::size_t count, std::string tail)
        : m_make([item = std::move(item), tail = std::move(tail), count]() mutable {
              std::string piece;
              for (; count > 0 && piece.size() < 16384; --count) {
                  piece += item;
              }
              return piece.empty() ? std::exchange(tail, std::string()) : piece;
          }),
          m_ahead(std::move(head))
    {}

    void seek_read(unsigned int) override { throw ZyIOException("cannot be restarted"); }
    void seek_write(unsigned int) override {}
    bool atEnd() const override { return false; }

    std::size_t largestPiece = std::numeric_limits<std::size_t>::max(); ///< of one read, bytes
    std::size_t good = std::numeric_limits<std::size_t>::max(); ///< reads that work before the next one fails
    std::size_t failures = 1;                                   ///< how many fail then
    unsigned int largestRequest = 0;                            ///< of all reads, bytes
    int closed = 0;

protected:
    void onClose() override { ++closed; }
    bool onOpen(Mode) override { return true; }
    unsigned int onWrite(ZyString const &) override { return 0; }
    ZyString onRead(unsigned int count) override
    {
        largestRequest = std::max(largestRequest, count);
        if (good == 0 && failures > 0) {
            --failures;
            throw ZyIOException("the line is dead");
        }
        good -= good > 0 ? 1 : 0;
        if (m_ahead.empty() && m_make) {
            m_ahead = m_make();
        }
        std::size_t const size = std::min({m_ahead.size(), largestPiece, std::size_t(count)});
        std::string piece = m_ahead.substr(0, size);
        m_ahead.erase(0, size);
        return ZyString(std::move(piece));
    }

private:
    std::function<std::string()> m_make;
    std::string m_ahead;
};
