// SPDX-License-Identifier: BSD-3-Clause
// One pass over the bytes of the input.

#include "TextCheck.h"

#include "TableError.h"
#include "Utf8Check.h"

#include <QFile>
#include <QFileInfo>

#include <string>
#include <string_view>

namespace
{

// What spreadsheet programs hold.
constexpr unsigned long long sheetRows = 1048576;
constexpr unsigned long long sheetColumns = 16384;
constexpr unsigned long long cellCharacters = 32767;
// A cell takes some 120 bytes in memory.
constexpr unsigned long long mostCells = 50000000;

/** Follows the text and keeps the facts; knows of lines, fields and quotes. */
class Scanner
{
public:
    explicit Scanner(QString const & file) : m_file(file) {}

    void take(std::string_view bytes)
    {
        for (char const byte : bytes) {
            take(static_cast<unsigned char>(byte));
        }
    }

    TextFacts finish()
    {
        if (!m_utf8.complete()) {
            refuse(QStringLiteral("the text ends in the middle of a character; it is no UTF-8"));
        }
        if (m_lineBytes > 0) {
            endLine();
        }
        if (m_facts.quotedFields && !m_quoteProblem.isEmpty()) {
            throw TableError::Line(m_file, m_quoteProblemLine, m_quoteProblem);
        }
        return m_facts;
    }

private:
    /** Behind a quote in a quoted field: another one makes the two a quote of the text, else the field is
     * closed. */
    enum class Place { FieldStart, Plain, Quoted, BehindQuote, Closed };

    void take(unsigned char byte)
    {
        ++m_facts.bytes;
        if (m_carriageReturn && byte != '\n') {
            refuse(controlWords('\r'));
        }
        if (!m_utf8.accept(byte)) {
            refuse(QStringLiteral("the byte %1 is not UTF-8 here; save the file as UTF-8").arg(hex(byte)));
        }
        if (byte == '\n') {
            endLine();
            return;
        }
        ++m_lineBytes;
        m_carriageReturn = byte == '\r';
        if (byte < 0x20 && byte != '\t' && byte != '\r') {
            refuse(controlWords(byte));
        }
        if (!m_carriageReturn) {
            inLine(byte);
        }
    }

    void inLine(unsigned char byte)
    {
        // UTF-16 has one unit a character, and two from U+10000 on.
        m_fieldLength += (byte & 0xC0) == 0x80 ? 0U : byte >= 0xF0 ? 2U : 1U;
        if (byte == ',' && m_place != Place::Quoted) {
            endField();
        } else if (byte == '"') {
            quote();
        } else if (byte == ' ' || byte == '\t') {
            m_place = m_place == Place::BehindQuote ? Place::Closed : m_place;
        } else {
            plain();
        }
    }

    void quote()
    {
        switch (m_place) {
        case Place::FieldStart:
            m_facts.quotedFields = true;
            m_place = Place::Quoted;
            break;
        case Place::Quoted:
            m_place = Place::BehindQuote;
            break;
        case Place::BehindQuote:
            m_place = Place::Quoted;
            break;
        case Place::Plain:
            quoteProblem(QStringLiteral("a double quote inside a field that does not begin with one"));
            break;
        case Place::Closed:
            quoteProblem(QStringLiteral("text behind the closing quote of a field"));
            break;
        }
        m_blankField = false;
    }

    void plain()
    {
        if (m_place == Place::BehindQuote || m_place == Place::Closed) {
            quoteProblem(QStringLiteral("text behind the closing quote of a field"));
        } else if (m_place == Place::FieldStart) {
            m_place = Place::Plain;
        }
        m_blankField = false;
    }

    void endField()
    {
        --m_fieldLength; // the comma
        noteField();
        ++m_fields;
        m_place = Place::FieldStart;
        m_blankField = true;
    }

    void noteField()
    {
        if (m_fieldLength > m_facts.fieldLength.value) {
            m_facts.fieldLength = {m_fieldLength, m_facts.lines + 1};
        }
        m_fieldLength = 0;
    }

    void endLine()
    {
        if (m_place == Place::Quoted) {
            quoteProblem(QStringLiteral("a quoted field does not end on its line"));
        }
        noteField();
        m_facts.emptyLastField = m_facts.emptyLastField || m_blankField;
        if (m_fields > m_facts.fields.value) {
            m_facts.fields = {m_fields, m_facts.lines + 1};
        }
        ++m_facts.lines;
        m_fields = 1;
        m_lineBytes = 0;
        m_carriageReturn = false;
        m_place = Place::FieldStart;
        m_blankField = true;
    }

    // Whether it matters is known at the end only: without quoted fields a quote is a character like any
    // other.
    void quoteProblem(QString const & reason)
    {
        if (m_quoteProblem.isEmpty()) {
            m_quoteProblem = reason;
            m_quoteProblemLine = m_facts.lines + 1;
        }
    }

    [[noreturn]] void refuse(QString const & reason) const
    {
        throw TableError::Line(m_file, m_facts.lines + 1, reason);
    }

    static QString hex(unsigned char byte)
    {
        return QStringLiteral("0x%1").arg(static_cast<unsigned int>(byte), 2, 16, QChar(u'0'));
    }

    static QString controlWords(unsigned char byte)
    {
        switch (byte) {
        case 0:
            return QStringLiteral("a zero byte; this is no text, or text in UTF-16");
        case '\r':
            return QStringLiteral("a carriage return inside a line");
        default:
            return QStringLiteral("the control character %1").arg(hex(byte));
        }
    }

    QString m_file;
    TextFacts m_facts;
    Utf8Check m_utf8;
    Place m_place = Place::FieldStart;
    bool m_blankField = true;
    bool m_carriageReturn = false;
    unsigned long long m_lineBytes = 0;
    unsigned long long m_fields = 1;
    unsigned long long m_fieldLength = 0;
    QString m_quoteProblem;
    unsigned long long m_quoteProblemLine = 0;
};

} // namespace

void openInput(QFile & file, QString const & name)
{
    QFileInfo const info(name);
    if (!info.exists()) {
        throw TableError::File(name, QStringLiteral("there is no such file"));
    }
    if (info.isDir()) {
        throw TableError::File(name, QStringLiteral("is a directory"));
    }
    if (!info.isFile()) {
        throw TableError::File(name, QStringLiteral("is no regular file"));
    }
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        throw TableError::File(name, QStringLiteral("cannot be read: %1").arg(file.errorString()));
    }
}

TextFacts checkText(QString const & name)
{
    QFile file(name);
    openInput(file, name);
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    Scanner scanner(name);
    std::string block(1U << 18, '\0');
    bool markSeen = false;
    unsigned long long total = 0;
    for (qint64 read = 0; (read = file.read(block.data(), qint64(block.size()))) != 0;) {
        if (read < 0) {
            throw TableError::File(name, QStringLiteral("cannot be read: %1").arg(file.errorString()));
        }
        std::string_view bytes(block.data(), std::size_t(read));
        if (total == 0 && bytes.substr(0, mark.size()) == mark) {
            markSeen = true;
            bytes.remove_prefix(mark.size());
        }
        total += static_cast<unsigned long long>(read);
        scanner.take(bytes);
    }
    TextFacts facts = scanner.finish();
    if (facts.lines == 0) {
        throw TableError::File(name, QStringLiteral("is empty"));
    }
    facts.byteOrderMark = markSeen;
    facts.bytes = total;
    return facts;
}

void checkSize(QString const & file, TextFacts const & facts, bool forSheet)
{
    if (forSheet && facts.lines > sheetRows) {
        throw TableError::Line(file, sheetRows + 1,
                               QStringLiteral("more rows than the %1 of a sheet").arg(sheetRows));
    }
    if (forSheet && facts.fields.value > sheetColumns) {
        throw TableError::Line(file, facts.fields.line,
                               QStringLiteral("%1 fields, more than the %2 columns of a sheet")
                                   .arg(facts.fields.value)
                                   .arg(sheetColumns));
    }
    if (forSheet && facts.fieldLength.value > cellCharacters) {
        throw TableError::Line(file, facts.fieldLength.line,
                               QStringLiteral("a field of %1 characters, more than the %2 of a cell")
                                   .arg(facts.fieldLength.value)
                                   .arg(cellCharacters));
    }
    if (facts.lines > mostCells || facts.fields.value > mostCells / facts.lines) {
        throw TableError::Line(file, facts.fields.line,
                               QStringLiteral("%1 fields, which makes a table of %2 rows too large to hold")
                                   .arg(facts.fields.value)
                                   .arg(facts.lines));
    }
}
