// SPDX-License-Identifier: BSD-3-Clause
// Devices of a host, and locales of one, for the tests of this folder.
#pragma once

#include <ZyException.h>
#include <ZyIODevice.h>
#include <ZyString.h>

#include <clocale>
#include <cstddef>
#include <locale>
#include <string>
#include <vector>

/** Keeps every write for itself; may be told to refuse to open, or to fail at one write. */
class RecordingDevice : public ZyIODevice
{
public:
    void seek_read(unsigned int) override {}
    void seek_write(unsigned int) override {}
    bool atEnd() const override { return true; }

    std::vector<std::string> writes;
    bool opens = true;
    std::size_t failingWrite = static_cast<std::size_t>(-1); ///< counted from 0

protected:
    bool onOpen(ZyIODevice::Mode) override { return opens; }
    void onClose() override {}
    ZyString onRead(unsigned int) override { return ZyString(); }
    unsigned int onWrite(ZyString const & text) override
    {
        if (m_calls++ == failingWrite) {
            throw ZyIOException("Write refused");
        }
        writes.push_back(text.toStdString());
        return text.size();
    }

private:
    std::size_t m_calls = 0;
};

/** Gives a text byte by byte, by the line reader that every device inherits; may fail at one byte. */
class ByteDevice : public ZyIODevice
{
public:
    explicit ByteDevice(std::string const & content) : m_content(content) {}
    void seek_read(unsigned int position) override { m_position = position; }
    void seek_write(unsigned int) override {}
    bool atEnd() const override { return m_position >= m_content.size(); }

    bool opens = true;
    std::size_t failingByte = static_cast<std::size_t>(-1);

    std::size_t position() const { return m_position; }

protected:
    bool onOpen(ZyIODevice::Mode) override { return opens; }
    void onClose() override {}
    ZyString onRead(unsigned int count) override
    {
        if (m_position == failingByte) {
            throw ZyIOException("Read refused");
        }
        std::string const piece = m_content.substr(m_position, count);
        m_position += piece.size();
        return piece;
    }
    unsigned int onWrite(ZyString const &) override { return 0; }

private:
    std::string m_content;
    std::size_t m_position = 0;
};

/** Makes a locale the global one of C++, and where it has a name of C too, until it goes. */
class GlobalLocale
{
public:
    explicit GlobalLocale(std::locale const & locale)
        : m_cName(std::setlocale(LC_ALL, nullptr)), m_former(std::locale::global(locale))
    {}
    ~GlobalLocale()
    {
        std::locale::global(m_former);
        std::setlocale(LC_ALL, m_cName.c_str());
    }
    GlobalLocale(GlobalLocale const &) = delete;
    GlobalLocale & operator=(GlobalLocale const &) = delete;

    /** Whether the system has a locale of this name. */
    static bool Exists(char const * name)
    {
        try {
            std::locale const locale(name);
            return true;
        } catch (std::runtime_error const &) {
            return false;
        }
    }

private:
    std::string m_cName;
    std::locale m_former;
};

/** The classic facet, but for the underscore, which is white space too. */
class UnderscoreIsSpace : public std::ctype<char>
{
public:
    UnderscoreIsSpace() : std::ctype<char>(Table()) {}

private:
    static mask const * Table()
    {
        static std::vector<mask> const table = [] {
            std::vector<mask> masks(classic_table(), classic_table() + table_size);
            masks[static_cast<unsigned char>('_')] = space;
            return masks;
        }();
        return table.data();
    }
};
