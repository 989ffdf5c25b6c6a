// SPDX-License-Identifier: BSD-3-Clause
// One element of our own around what the library writes and reads of a rich table.

#include "DataTableFile.h"

#include "Cell.h"
#include "CountedFile.h"
#include "TableError.h"

#include <ZyXMLLoader.h>
#include <ZyXMLObject.h>
#include <ZyXMLStreamElementWriter.h>
#include <ZyXMLStreamReader.h>
#include <ZyXMLStreamWriter.h>

#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>
#include <memory>
#include <vector>

namespace
{

constexpr char const * rootName = "DataTable";

/** Follows the elements of a file and complains with the line where something is wrong. */
class FormCheck
{
public:
    FormCheck(QString const & name, QFile & file) : m_name(name), m_xml(&file) {}

    TextFacts run()
    {
        while (!m_xml.atEnd()) {
            switch (m_xml.readNext()) {
            case QXmlStreamReader::StartElement:
                enter();
                break;
            case QXmlStreamReader::EndElement:
                leave();
                break;
            case QXmlStreamReader::Characters:
                text();
                break;
            case QXmlStreamReader::DTD:
                fail(QStringLiteral("a document type, which such a file does not have"));
            default:
                break;
            }
        }
        if (m_xml.hasError()) {
            fail(m_xml.errorString());
        }
        return m_facts;
    }

private:
    [[noreturn]] void fail(QString const & reason) const
    {
        throw TableError::Line(m_name, static_cast<unsigned long long>(m_xml.lineNumber()), reason);
    }

    void enter()
    {
        QString const name = m_xml.name().toString();
        QStringList const expected = expectedNames();
        if (!expected.contains(name)) {
            fail(expected.isEmpty() ? QStringLiteral("an element \"%1\" inside a value").arg(name)
                                    : QStringLiteral("an element \"%1\" where \"%2\" is expected")
                                          .arg(name, expected.join(QStringLiteral("\" or \""))));
        }
        m_open.push_back(name);
        m_text.clear();
        start(m_open.size());
    }

    QStringList expectedNames() const
    {
        static QStringList const byDepth[] = {
            {QString::fromLatin1(rootName)}, {QStringLiteral("Rows")},  {QStringLiteral("Row")},
            {QStringLiteral("Item")},        {QStringLiteral("Value")},
        };
        static QStringList const kinds = {QStringLiteral("Boolean"),  QStringLiteral("Integer"),
                                          QStringLiteral("Double"),   QStringLiteral("Size"),
                                          QStringLiteral("FilePath"), QStringLiteral("FilePathPair"),
                                          QStringLiteral("String"),   QStringLiteral("StringPair")};
        if (m_open.size() < std::size(byDepth)) {
            return byDepth[m_open.size()];
        }
        if (m_open.size() == std::size(byDepth)) {
            return kinds;
        }
        bool const isPair = m_open.size() == std::size(byDepth) + 1 && m_open.back().endsWith(u"Pair");
        return isPair ? QStringList{QStringLiteral("First"), QStringLiteral("Second")} : QStringList();
    }

    void start(std::size_t depth)
    {
        if (depth == rowDepth) {
            number(QStringLiteral("header"), 0, 2);
            m_height = 0;
            m_width = 0;
        } else if (depth == itemDepth) {
            m_width += number(QStringLiteral("hspan"), 1, 1000000);
            m_values = 0;
        } else if (depth == valueDepth) {
            ++m_values;
        }
    }

    unsigned int number(QString const & attribute, unsigned int least, unsigned int most) const
    {
        QXmlStreamAttributes const attributes = m_xml.attributes();
        if (!attributes.hasAttribute(attribute)) {
            return least;
        }
        QString const value = attributes.value(attribute).toString();
        bool isNumber = false;
        unsigned int const result = value.toUInt(&isNumber);
        if (!isNumber || result < least || result > most) {
            fail(QStringLiteral("%1=\"%2\": a number from %3 to %4 is expected")
                     .arg(attribute, value)
                     .arg(least)
                     .arg(most));
        }
        return result;
    }

    void text()
    {
        if (m_open.size() > valueDepth) {
            m_text += m_xml.text();
            return;
        }
        if (!m_xml.isWhitespace()) {
            fail(QStringLiteral("text outside of a value"));
        }
    }

    void leave()
    {
        if (m_open.size() > valueDepth) {
            checkText();
        } else if (m_open.size() == itemDepth) {
            m_height = std::max(m_height, m_values);
        } else if (m_open.size() == rowDepth) {
            m_facts.lines += m_height;
            note(m_facts.fields, m_width);
        }
        m_open.pop_back();
    }

    void checkText()
    {
        QString const trimmed = m_text.trimmed();
        QString const & kind = m_open.back();
        if (kind == u"Integer" && !isInteger(trimmed)) {
            fail(QStringLiteral("\"%1\" is no integer of 32 bits").arg(trimmed));
        }
        if (kind == u"Double" && !isDouble(trimmed)) {
            fail(QStringLiteral("\"%1\" is not the Base64 form of a number").arg(trimmed));
        }
        note(m_facts.fieldLength, static_cast<unsigned long long>(trimmed.size()));
    }

    static bool isInteger(QString const & text)
    {
        bool isNumber = false;
        text.toInt(&isNumber);
        return isNumber;
    }

    // Eight bytes.
    static bool isDouble(QString const & text)
    {
        auto const bytes =
            QByteArray::fromBase64Encoding(text.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
        return bytes && bytes.decoded.size() == 8;
    }

    void note(Extreme & extreme, unsigned long long value) const
    {
        if (value > extreme.value) {
            extreme = {value, static_cast<unsigned long long>(m_xml.lineNumber())};
        }
    }

    static constexpr std::size_t rowDepth = 3;
    static constexpr std::size_t itemDepth = 4;
    static constexpr std::size_t valueDepth = 5;

    QString m_name;
    QXmlStreamReader m_xml;
    TextFacts m_facts;
    std::vector<QString> m_open;
    QString m_text;
    unsigned long long m_width = 0;
    unsigned long long m_height = 0;
    unsigned long long m_values = 0;
};

ZyDataTable load(ZyXMLStreamReader & reader)
{
    ZyDataTable table;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<ZyDataTable>(ZyXMLPath(rootName),
                             [&table](ZyUniquePtr<ZyDataTable> read) { table = std::move(*read); });
    loader->load(reader);
    return table;
}

QString placeOf(std::size_t row, std::size_t item)
{
    return QStringLiteral("row %1, cell %2").arg(row + 1).arg(item + 1);
}

// The form knows one kind of heading.
bool isHeading(ZyDataTableRow const & row)
{
    return row.type != ZyDataTable::Data;
}

bool isSameItem(ZyDataTableItem const & a, ZyDataTableItem const & b)
{
    auto const & first = a.values().std_deque();
    auto const & second = b.values().std_deque();
    return a.columnSpan() == b.columnSpan() && first.size() == second.size() &&
           std::equal(first.begin(), first.end(), second.begin(), isIdentical);
}

} // namespace

bool isDataTableFile(QString const & file)
{
    return file.endsWith(QStringLiteral(".zyt.xml"), Qt::CaseInsensitive);
}

TextFacts checkDataTable(QString const & name)
{
    QFile file(name);
    openInput(file, name);
    TextFacts facts = FormCheck(name, file).run();
    if (facts.lines == 0) {
        throw TableError::File(name, QStringLiteral("has no rows"));
    }
    facts.bytes = static_cast<unsigned long long>(file.size());
    return facts;
}

ZyDataTable readDataTable(QString const & file)
{
    ZyXMLStreamReader reader{ZyFilePath(ZyString(file))};
    return load(reader);
}

ZyDataTable readDataTable(ZyIODevice & device)
{
    ZyXMLStreamReader reader(device);
    return load(reader);
}

void writeDataTable(ZyIODevice & device, ZyDataTable const & table)
{
    ZyXMLStreamWriter xml(device, ZyXMLStreamWriter::AutoFormattingSettings());
    xml.startDocument();
    {
        auto const root = xml.createElement(rootName);
        ZyXMLObject<ZyDataTable>::Write(*root, table);
    }
    xml.finishDocument();
}

unsigned long long writeDataTable(ZyFilePath const & file, ZyDataTable const & table)
{
    CountedFile device(file);
    writeDataTable(device, table);
    return device.written();
}

QString firstDifference(ZyDataTable const & a, ZyDataTable const & b)
{
    auto const & rowsA = a.rows().std_deque();
    auto const & rowsB = b.rows().std_deque();
    for (std::size_t row = 0; row < std::min(rowsA.size(), rowsB.size()); ++row) {
        auto const & itemsA = rowsA[row]->items.std_deque();
        auto const & itemsB = rowsB[row]->items.std_deque();
        for (std::size_t item = 0; item < std::min(itemsA.size(), itemsB.size()); ++item) {
            if (!isSameItem(*itemsA[item], *itemsB[item])) {
                return placeOf(row, item);
            }
        }
        if (itemsA.size() != itemsB.size() || isHeading(*rowsA[row]) != isHeading(*rowsB[row])) {
            return placeOf(row, std::min(itemsA.size(), itemsB.size()));
        }
    }
    return rowsA.size() == rowsB.size() ? QString() : placeOf(std::min(rowsA.size(), rowsB.size()), 0);
}
