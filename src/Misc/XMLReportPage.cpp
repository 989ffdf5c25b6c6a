// SPDX-License-Identifier: BSD-3-Clause
// Formatted output costs more than the writing; here a number is formatted where it stands in the block.
#include "Misc/XMLReportPage_p.h"

#include "Core/ZyNumberText_p.h"

#include <keelbase/KbSystem.h>

#include <cstring>

namespace
{
constexpr char builtInStyle[] =
    "\t\t<style>\n"
    "\t\t\th1, h2, p { font-family: 'Open Sans',sans-serif; }\n"
    "\t\t\th2 { margin-left: 40px;}\n"
    "\t\t\t.datatable { margin-left: 80px; font-family: 'Open Sans',sans-serif;}\n"
    "\t\t\t.datatable th { text-align: left;background-color: #4CAF50;color: white;}\n"
    "\t\t\t.datatable td { width: 200px;}\n"
    "\t\t\t.headertable { width: 100%; margin-left: 40px; font-family: 'Open Sans',sans-serif;}\n"
    "\t\t\t.headertable td { width: auto;}\n"
    "\t\t</style>\n";
} // namespace

XMLReportPage::XMLReportPage(YString const & path)
    : m_block(std::make_unique<char[]>(blockSize)), m_file(fopen_s_utf8(path, "w"))
{}

XMLReportPage::~XMLReportPage()
{
    if (isOpen()) {
        flush();
    }
}

void XMLReportPage::writeStyle(YString const & cssPath)
{
    File const style(fopen_s_utf8(cssPath, "r"));
    if (!style || !copyStyle(style.get())) {
        write(builtInStyle);
    }
}

/** \return false, and nothing is written, when the file does not even begin to read: a directory opens on
 * some systems */
bool XMLReportPage::copyStyle(std::FILE * style)
{
    char piece[4096];
    std::size_t size = std::fread(piece, 1, sizeof(piece), style);
    if (size == 0 && std::ferror(style) != 0) {
        return false;
    }
    write("<style>\n");
    while (size > 0) {
        write(std::string_view(piece, size));
        size = std::fread(piece, 1, sizeof(piece), style);
    }
    write("</style>\n");
    return true;
}

void XMLReportPage::put(std::string_view text)
{
    while (text.size() > blockSize - m_used) {
        std::size_t const fits = blockSize - m_used;
        std::memcpy(&m_block[m_used], text.data(), fits);
        m_used += fits;
        text.remove_prefix(fits);
        flush();
    }
    if (!text.empty()) {
        std::memcpy(&m_block[m_used], text.data(), text.size());
        m_used += text.size();
    }
}

void XMLReportPage::put(YString const & text)
{
    put(std::string_view(text.c_str(), static_cast<std::size_t>(text.length())));
}

template <class Number>
void XMLReportPage::putNumber(Number number)
{
    if (blockSize - m_used < ZyNumberText::room) {
        flush();
    }
    char * const end = ZyNumberText::write(&m_block[m_used], number);
    m_used = static_cast<std::size_t>(end - m_block.get());
}

void XMLReportPage::put(int number)
{
    putNumber(number);
}

void XMLReportPage::put(long long number)
{
    putNumber(number);
}

void XMLReportPage::put(double number)
{
    putNumber(number);
}

void XMLReportPage::flush()
{
    static_cast<void>(std::fwrite(m_block.get(), 1, m_used, m_file.get()));
    m_used = 0;
}
