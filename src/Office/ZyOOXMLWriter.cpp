// SPDX-License-Identifier: BSD-3-Clause
// The package: its sheets one after the other, then the four parts that tie them together.
#include <ZyOOXMLWriter.h>

#include "Office/ZyOOXMLNames_p.h"

#include <ZyDeque.h>
#include <ZyException.h>
#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyOOXMLWriterSpreadsheet.h>
#include <ZyString.h>
#include <ZyXMLStreamWriter.h>
#include <ZyZipFile.h>

#include <algorithm>

class ZyOOXMLWriter::Private : public ZyPrivateObject
{
public:
    struct Document
    {
        ZyString name;
        ZyString relationshipId;

        bool operator==(Document const & other) const { return name == other.name; }
    };

    Private(ZyFilePath const & path, FileType type, ZyZipArchive::EntryNames names)
        : archive(path, ZyZipArchive::Write, names), fileType(type)
    {}

    bool hasDocument(ZyString const & name) const;
    ZySharedPtr<ZyIODevice> openPart(char const * name);
    void writeContentTypes();
    void writePackageRelationships();
    void writeWorkbookRelationships();
    void writeWorkbook();

    ZyZipArchive archive;
    FileType fileType;
    bool closed = false;
    bool addingFailed = false;                            ///< the last sheet has no place in the archive
    ZySharedPtr<ZyOOXMLWriterSpreadsheet> activeDocument; ///< the sheet under way, or null
    ZyDeque<Document> documents;                          ///< in order of adding
};

namespace
{
/** One element without content and with two or three attributes. */
void writeEntry(ZyXMLStreamWriter & xml, char const * element,
                std::initializer_list<std::pair<char const *, ZyString>> attributes)
{
    xml.startElement(element);
    for (auto const & [name, value] : attributes) {
        xml.writeAttribute(name, value);
    }
    xml.finishElement();
}

void startRelationships(ZyXMLStreamWriter & xml)
{
    xml.writeDefaultNamespace(ZyOOXMLNames::packageRelationships);
    xml.startDocument();
    xml.startElement("Relationships");
}
} // namespace

bool ZyOOXMLWriter::Private::hasDocument(ZyString const & name) const
{
    auto const & all = documents.std_deque();
    return std::any_of(all.begin(), all.end(),
                       [&](Document const & document) { return document.name == name; });
}

ZySharedPtr<ZyIODevice> ZyOOXMLWriter::Private::openPart(char const * name)
{
    return archive.open(name, ZyZipArchive::DefaultLevel).lock();
}

void ZyOOXMLWriter::Private::writeContentTypes()
{
    constexpr char const * part = "[Content_Types].xml";
    ZySharedPtr<ZyIODevice> const device = openPart(part);
    if (!device) {
        throw ZyFileSaveException("Unable to complete document", part);
    }
    ZyXMLStreamWriter xml(device);
    xml.writeDefaultNamespace(ZyOOXMLNames::contentTypes);
    xml.startDocument();
    xml.startElement("Types");
    writeEntry(
        xml, "Default",
        {{"Extension", "rels"}, {"ContentType", "application/vnd.openxmlformats-package.relationships+xml"}});
    writeEntry(xml, "Default", {{"Extension", "xml"}, {"ContentType", "application/xml"}});
    writeEntry(
        xml, "Override",
        {{"PartName", "/xl/workbook.xml"},
         {"ContentType", "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"}});
    for (Document const & document : documents.std_deque()) {
        writeEntry(
            xml, "Override",
            {{"PartName", "/xl/worksheets/" + document.name + ".xml"},
             {"ContentType", "application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"}});
    }
    xml.finishDocument();
}

void ZyOOXMLWriter::Private::writePackageRelationships()
{
    if (ZySharedPtr<ZyIODevice> const device = openPart("_rels/.rels")) {
        ZyXMLStreamWriter xml(device);
        startRelationships(xml);
        writeEntry(xml, "Relationship",
                   {{"Target", "xl/workbook.xml"}, {"Id", "rId1"}, {"Type", ZyOOXMLNames::officeDocument}});
        xml.finishDocument();
    }
}

void ZyOOXMLWriter::Private::writeWorkbookRelationships()
{
    if (ZySharedPtr<ZyIODevice> const device = openPart("xl/_rels/workbook.xml.rels")) {
        ZyXMLStreamWriter xml(device);
        startRelationships(xml);
        for (Document const & document : documents.std_deque()) {
            writeEntry(xml, "Relationship",
                       {{"Target", "worksheets/" + document.name + ".xml"},
                        {"Id", document.relationshipId},
                        {"Type", ZyOOXMLNames::worksheet}});
        }
        xml.finishDocument();
    }
}

void ZyOOXMLWriter::Private::writeWorkbook()
{
    if (ZySharedPtr<ZyIODevice> const device = openPart("xl/workbook.xml")) {
        ZyXMLStreamWriter xml(device);
        xml.startDocument();
        xml.writeDefaultNamespace(ZyOOXMLNames::spreadsheet);
        xml.startElement("workbook");
        xml.writeAttribute("xmlns:r", ZyOOXMLNames::relationships);
        xml.startElement("sheets");
        unsigned int position = 0;
        for (Document const & document : documents.std_deque()) {
            writeEntry(xml, "sheet",
                       {{"name", document.name}, {"sheetId", ++position}, {"r:id", document.relationshipId}});
        }
        xml.finishDocument();
    }
}

ZyOOXMLWriter::ZyOOXMLWriter(ZyFilePath const & path, FileType type, ZyZipArchive::EntryNames names)
    : m_d(new Private(path, type, names))
{}

ZyOOXMLWriter::~ZyOOXMLWriter()
{
    ZySharedPtr<ZyOOXMLWriterSpreadsheet> const & sheet = d()->activeDocument;
    bool const failureIsKnown = d()->addingFailed || (sheet && sheet->hasReportedFailure());
    if (!failureIsKnown) {
        close();
    }
}

ZySharedPtr<ZyOOXMLWriterSpreadsheet> ZyOOXMLWriter::addSheet(ZyString const & name)
{
    if (d()->hasDocument(name)) {
        throw ZyInvalidParameterException("Document with the given name already exists: " + name);
    }
    if (d()->activeDocument) {
        d()->activeDocument->close();
    }
    auto const number = static_cast<unsigned int>(d()->documents.size()) + 1;
    d()->documents.add(Private::Document{name, "rId" + ZyString(number)});
    d()->addingFailed = true;
    auto const device = d()->archive.open("xl/worksheets/" + name + ".xml", ZyZipArchive::DefaultLevel);
    d()->activeDocument.reset(new ZyOOXMLWriterSpreadsheet(device));
    d()->addingFailed = false;
    return d()->activeDocument;
}

void ZyOOXMLWriter::close()
{
    if (d()->closed) {
        return;
    }
    d()->closed = true;
    if (d()->activeDocument) {
        d()->activeDocument->close();
        d()->activeDocument.reset();
    }
    if (d()->documents.size() == 0) {
        throw ZyFileSaveException("Cannot save document as not content provided", "");
    }
    if (d()->fileType != Spreadsheet) {
        throw ZyFileSaveException("Unknown document type", "");
    }
    d()->writeContentTypes();
    d()->writePackageRelationships();
    d()->writeWorkbookRelationships();
    d()->writeWorkbook();
}
