// SPDX-License-Identifier: BSD-3-Clause
// A device in memory whose writes fail: one of them, or all from one on, as on a full disk.
#pragma once

#include <ZyException.h>
#include <ZyIODevice.h>
#include <ZyString.h>

#include <string>

class FailingDevice : public ZyIODevice
{
public:
    /** \param failing the first write that throws, counted from 1; \param lasting whether all later ones do
     * too */
    FailingDevice(unsigned failing, bool lasting) : m_failing(failing), m_lasting(lasting) {}

    void seek_read(unsigned int) override {}
    void seek_write(unsigned int) override {}
    bool atEnd() const override { return true; }

    std::string const & written() const { return m_written; }
    bool hasFailed() const { return m_count >= m_failing; }

protected:
    bool onOpen(Mode) override { return true; }
    void onClose() override {}
    ZyString onRead(unsigned int) override { return ZyString(); }
    unsigned int onWrite(ZyString const & text) override
    {
        ++m_count;
        if (m_count == m_failing || (m_lasting && m_count > m_failing)) {
            throw ZyIOException("The device is full");
        }
        m_written += text.toStdString();
        return text.size();
    }

private:
    unsigned m_failing;
    bool m_lasting;
    unsigned m_count = 0;
    std::string m_written;
};
