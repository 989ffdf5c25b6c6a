// SPDX-License-Identifier: BSD-3-Clause
// A page of a report on its way to a file: texts and numbers collect in a block of memory, which goes to the
// file when it is full. Numbers are written as the formatted output of the C locale writes them.
#pragma once

#include <keelbase/YString.h>

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string_view>

/**
 * An output file that is written from front to back and closed with this object.
 *
 * \deliberate{report-writes-unchecked} Nothing is checked once the file is open: a full disk leaves a short page, and
 * the report still says true.
 */
class XMLReportPage
{
public:
    /** Opens the file, or makes it, with the line ends of the system; what it held is lost. */
    explicit XMLReportPage(YString const & path);
    XMLReportPage(XMLReportPage const &) = delete;
    XMLReportPage & operator=(XMLReportPage const &) = delete;
    ~XMLReportPage();

    /** Whether there is a file to write to; without one nothing may be written. */
    bool isOpen() const { return m_file != nullptr; }

    /**
     * Writes texts, integers ("%d") and real numbers ("%g"), one behind the other.
     *
     * \deliberate{report-text-unescaped} Text goes out as it is: markup in a name or a title becomes markup of the
     * page.
     */
    template <class... Parts>
    void write(Parts const &... parts)
    {
        (put(parts), ...);
    }

    /** Writes the file \a cssPath as the page's style; the built-in style when it cannot be read. */
    void writeStyle(YString const & cssPath);

private:
    struct Closer
    {
        void operator()(std::FILE * file) const { static_cast<void>(std::fclose(file)); }
    };
    using File = std::unique_ptr<std::FILE, Closer>;

    static constexpr std::size_t blockSize = 65536;

    void put(std::string_view text);
    void put(char const * text) { put(std::string_view(text)); }
    void put(YString const & text);
    void put(int number);
    void put(long long number);
    void put(double number);
    template <class Number>
    void putNumber(Number number);

    bool copyStyle(std::FILE * style);
    void flush();

    std::unique_ptr<char[]> m_block; // made before the file, so that no file is emptied when memory is short
    std::size_t m_used = 0;
    File m_file;
};
