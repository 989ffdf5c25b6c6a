// SPDX-License-Identifier: BSD-3-Clause
// The file of comma-separated text and the one rule by which a line falls into fields.
#pragma once

#include <ZyDeque.h>
#include <ZyExport.h>
#include <ZyFile.h>
#include <ZyString.h>
#include <ZyStringView.h>

/**
 * A file of comma-separated text.
 *
 * The comma is the only separator. A pair of double quotes guards the commas between them; there is no
 * escaped quote inside a field.
 *
 * \code
 * ZyString const line("1,\"a, b\"");
 * ZyDeque<ZyStringView> const fields = ZyCSVFile::ExtractLine(line);
 * fields.at(1) == "a, b"; // true
 * \endcode
 */
class ZYCORE_EXPORT ZyCSVFile : public ZyFile
{
public:
    /** A file with an empty path. */
    ZyCSVFile();
    /** The file named by \a path, which is brought into the normal form of ZyFilePath. Nothing is opened. */
    explicit ZyCSVFile(ZyString const & path);
    ZyCSVFile(ZyCSVFile const &) = delete;
    ZyCSVFile & operator=(ZyCSVFile const &) = delete;
    ~ZyCSVFile() override;

    /**
     * Splits a line into its fields, one more than it has commas outside quotes.
     *
     * White space around a field (ZyString::IsWhiteSpace, so a line feed at the end too) is cut. Of a field
     * that then begins and ends with a quote, this one pair is taken away. Quotes need not balance: an
     * unbalanced one guards the rest of the line.
     *
     * \deliberate{csv-doubled-quotes-stay} Quotes inside a field stay as they are, doubled ones doubled: the format has no
     * escaped quote.
     *
     * \deliberate{csv-last-field-empty-throws} A line that is empty or blank, or whose last field is, such as one that
     * ends in a comma, is refused: the caller gets an exception and never a short row.
     *
     * \return views into \a line, which must outlive them
     * \throws ZyIndexOutOfBoundsException "Index out of bounds [n,n]" with n the length of the line, when the last field
     *         is empty or all white space
     * \threads any; pure
     */
    static ZyDeque<ZyStringView> ExtractLine(ZyString const & line);
};
