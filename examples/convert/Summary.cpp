// SPDX-License-Identifier: BSD-3-Clause
// Rows, columns and their kinds, files and sizes, time.

#include "Summary.h"

#include "Cell.h"

#include <QFileInfo>
#include <QLocale>

#include <array>
#include <cstdio>

namespace
{

/** How many cells of each kind a column has below its headings. */
using KindCounts = std::array<unsigned int, 4>;

void print(QString const & line)
{
    std::fputs((line + u'\n').toUtf8().constData(), stdout);
}

QString grouped(unsigned long long number)
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::DefaultNumberOptions); // groups of three digits
    return locale.toString(number);
}

QString counted(unsigned long long number, char const * one, char const * many)
{
    return grouped(number) + u' ' + QString::fromLatin1(number == 1 ? one : many);
}

KindCounts countKinds(ZyVariantTable const & table, unsigned int headingRows, unsigned int column)
{
    KindCounts counts{};
    for (unsigned int row = headingRows; row < table.numberRows(); ++row) {
        ++counts.at(static_cast<std::size_t>(kindOf(table.at(row, column))));
    }
    return counts;
}

QString kindsText(KindCounts const & counts)
{
    static constexpr std::array<char const *, 4> words = {"empty", "integer", "decimal", "text"};
    QStringList parts;
    for (std::size_t const kind : {1U, 2U, 3U, 0U}) {
        if (counts.at(kind) > 0) {
            parts.append(grouped(counts.at(kind)) + u' ' + QString::fromLatin1(words.at(kind)));
        }
    }
    return parts.isEmpty() ? QStringLiteral("nothing") : parts.join(QStringLiteral(", "));
}

QString headingOf(ZyVariantTable const & table, unsigned int headingRows, unsigned int column)
{
    QString const text =
        headingRows == 0 ? QString() : exactText(table.at(headingRows - 1, column)).toQString();
    return text.size() > 24 ? text.left(23) + QChar(0x2026) : text;
}

unsigned long long roundedCells(ZyVariantTable const & table)
{
    unsigned long long count = 0;
    table.forEach(
        [&count](unsigned int, unsigned int, ZyVariant const & cell) { count += isRounded(cell) ? 1 : 0; });
    return count;
}

} // namespace

void printSummary(Options const & options, TextFacts const & facts, ZyVariantTable const & table,
                  double seconds)
{
    print(QStringLiteral("Read     %1: %2, %3, %4")
              .arg(options.input, counted(facts.bytes, "byte", "bytes"),
                   counted(table.numberRows(), "row", "rows"),
                   counted(table.numberColumns(), "column", "columns")));
    constexpr unsigned int mostLines = 40;
    for (unsigned int column = 0; column < table.numberColumns() && column < mostLines; ++column) {
        print(QStringLiteral("  %1  %2  %3")
                  .arg(column + 1, 4)
                  .arg(headingOf(table, options.headingRows, column), -24)
                  .arg(kindsText(countKinds(table, options.headingRows, column))));
    }
    if (table.numberColumns() > mostLines) {
        print(QStringLiteral("  and %1")
                  .arg(counted(table.numberColumns() - mostLines, "more column", "more columns")));
    }
    for (QString const & output : options.outputs) {
        print(QStringLiteral("Written  %1: %2")
                  .arg(output,
                       counted(static_cast<unsigned long long>(QFileInfo(output).size()), "byte", "bytes")));
    }
    unsigned long long const rounded = writesSheet(options) ? roundedCells(table) : 0;
    if (rounded > 0) {
        print(
            QStringLiteral("Note     sheets show six digits of a number: %1 rounded; --text keeps all digits")
                .arg(counted(rounded, "was", "were")));
    }
    print(QStringLiteral("Time     %1 s").arg(seconds, 0, 'f', 2));
}
