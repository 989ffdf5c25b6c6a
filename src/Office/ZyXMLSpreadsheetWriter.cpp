// SPDX-License-Identifier: BSD-3-Clause
// The single-file spreadsheet. Rows go through the stream writer, cells are made as indented markup and take
// its fast road.
#include <ZyXMLSpreadsheetWriter.h>

#include "Office/ZyCellText_p.h"
#include "XML/ZyXMLStreamWriter_p.h"

#include <ZyException.h>
#include <ZyIODevice.h>
#include <ZyUniquePtr.h>
#include <ZyVariant.h>
#include <ZyXMLStreamElementWriter.h>
#include <ZyXMLStreamWriter.h>

#include <string>
#include <utility>

namespace
{
constexpr char const * spreadsheet = "urn:schemas-microsoft-com:office:spreadsheet";

using Element = ZyUniquePtr<ZyXMLStreamElementWriter>;

void appendSpan(std::string & markup, char const * attribute, unsigned int span)
{
    if (span > 1) {
        markup += attribute;
        ZyCellText::appendNumber(markup, span - 1);
        markup += '"';
    }
}

void appendData(std::string & markup, ZyVariant const & value)
{
    bool const isNumber = value.type() == ZyVariant::Integer || value.type() == ZyVariant::Double;
    markup += isNumber ? "<Data ss:Type=\"Number\">" : "<Data ss:Type=\"String\">";
    ZyCellText::append(markup, value);
    markup += "</Data>";
}

/** Sees to it that the device may be written, before anything is built on it. */
ZyIODevice & writable(ZyIODevice & device)
{
    if (device.mode() == ZyIODevice::Closed) {
        device.open(ZyIODevice::Write);
    } else if (device.mode() == ZyIODevice::Read) {
        throw ZyInvalidCallException("Device is in read mode, cannot write to it");
    }
    return device;
}
} // namespace

class ZyXMLSpreadsheetWriter::Private : public ZyPrivateObject
{
public:
    explicit Private(ZyIODevice & target)
        : device(&target), writer(writable(target), ZyXMLStreamWriter::AutoFormattingSettings(true, 2))
    {}

    void begin();
    Element create(char const * name) { return Element(writer.createElement(name).release()); }
    void finish(Element & element);

    ZyIODevice * device;
    ZyXMLStreamWriter writer;
    Element workbookElement;
    Element worksheetElement;
    Element tableElement;
    Element rowElement;       ///< null between rows
    bool rowHasCells = false; ///< the row's end tag gets a line of its own
};

void ZyXMLSpreadsheetWriter::Private::begin()
{
    writer.startDocument();
    ZyXMLMarkup::Flush(writer);
    device->write(ZyString::NewLine() + "<?mso-application progid=\"Excel.Sheet\"?>");
    writer.writeDefaultNamespace(spreadsheet);
    writer.writeNamespace(spreadsheet, "ss");
    workbookElement = create("Workbook");
    worksheetElement = create("Worksheet");
    writer.writeAttribute("Name", "Sheet1", spreadsheet);
    tableElement = create("Table");
}

void ZyXMLSpreadsheetWriter::Private::finish(Element & element)
{
    Element const finished = std::move(element);
    if (finished) {
        writer.finishElement(finished.get());
    }
}

ZyXMLSpreadsheetWriter::ZyXMLSpreadsheetWriter(ZyIODevice & device) : m_d(new Private(device))
{
    d()->begin();
}

ZyXMLSpreadsheetWriter::~ZyXMLSpreadsheetWriter()
{
    if (!ZyXMLMarkup::HasReportedFailure(d()->writer)) {
        finish();
    }
}

void ZyXMLSpreadsheetWriter::startRow()
{
    endRow();
    static_cast<void>(*d()->tableElement);
    d()->rowElement = d()->create("Row");
}

void ZyXMLSpreadsheetWriter::endRow()
{
    if (std::exchange(d()->rowHasCells, false)) {
        ZyXMLMarkup::Begin(d()->writer) += "\n      ";
        ZyXMLMarkup::End(d()->writer);
    }
    d()->finish(d()->rowElement);
}

void ZyXMLSpreadsheetWriter::addCell(ZyVariant const & value, unsigned int columnSpan, unsigned int rowSpan)
{
    if (!d()->rowElement) {
        startRow();
    }
    std::string & markup = ZyXMLMarkup::Begin(d()->writer);
    markup += "\n        <Cell";
    appendSpan(markup, " ss:MergeAcross=\"", columnSpan);
    appendSpan(markup, " ss:MergeDown=\"", rowSpan);
    markup += ">\n          ";
    appendData(markup, value);
    markup += "\n        </Cell>";
    d()->rowHasCells = true;
    ZyXMLMarkup::End(d()->writer);
}

void ZyXMLSpreadsheetWriter::finish()
{
    endRow();
    d()->finish(d()->tableElement);
    d()->finish(d()->worksheetElement);
    d()->finish(d()->workbookElement);
    d()->writer.finishDocument();
}
