// SPDX-License-Identifier: BSD-3-Clause
// Documents in memory: loading within bounds, and saving whole or not at all.
#include <ZyXMLDomDocument.h>

#include "Files/WholeSaveFile_p.h"
#include "Platform/NativePath.h"
#include "XML/ZyXMLDomElement_p.h"
#include "XML/ZyXMLDomGuard_p.h"
#include "XML/ZyXMLDomText_p.h"

#include <ZyException.h>
#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLValidator.h>

#include <QByteArray>
#include <QDomDocument>
#include <QFile>
#include <QString>

class ZyXMLDomDocument::Private : public ZyPrivateObject
{
public:
    Private()
    {
        // Making a node is what makes the document more than a null one.
        document.appendChild(document.createProcessingInstruction(
            QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"UTF-8\"")));
    }

    QDomDocument document;
};

namespace
{
QByteArray contentOf(ZyFilePath const & path)
{
    QFile file(NativePath::qt(path));
    if (!file.exists()) {
        throw ZyFileNotFoundException(path);
    }
    if (!file.open(QIODevice::ReadOnly)) {
        throw ZyFileException(ZyString(file.errorString()), path.path());
    }
    QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        throw ZyFileException(ZyString(file.errorString()), path.path());
    }
    return content;
}

bool setContent(QDomDocument & document, QByteArray const & content, ZyFilePath const & path)
{
    if (content.isEmpty()) {
        return false;
    }
    ZyXMLDomGuard::check(content, path.path());
    return document.setContent(content);
}

void load(QDomDocument & document, ZyFilePath const & path)
{
    QByteArray const content = contentOf(path);
    if (!setContent(document, content, path) &&
        !setContent(document, ZyXMLDomGuard::unpacked(content), path)) {
        throw ZyInvalidXMLException(path.path());
    }
}

/** The bytes of a saved file. */
QByteArray serialised(QDomDocument const & document, ZyXMLDomDocument::SaveType type)
{
    QByteArray text = ZyXMLDomText::of(document, type == ZyXMLDomDocument::Indented ? 1 : -1);
    if (type != ZyXMLDomDocument::Compressed) {
        return ZyXMLDomText::encoded(text, document);
    }
    text.replace('\n', QByteArray());
    return qCompress(ZyXMLDomText::encoded(text, document), -1);
}
} // namespace

ZyXMLDomDocument::ZyXMLDomDocument() : m_d(new Private) {}

ZyXMLDomDocument::ZyXMLDomDocument(ZyFilePath const & file) : m_d(new Private)
{
    load(d()->document, file);
}

ZyXMLDomDocument::ZyXMLDomDocument(ZyFilePath const & file, ZyFilePath const & schema) : m_d(new Private)
{
    ZyXMLValidator(file.path()).isValid(schema.path(), true);
    load(d()->document, file);
}

ZyXMLDomDocument::ZyXMLDomDocument(ZyXMLDomDocument const & other)
    : ZyPrivateObject(other), m_d(new Private(*other.d()))
{}

ZyXMLDomDocument & ZyXMLDomDocument::operator=(ZyXMLDomDocument const & other)
{
    *d() = *other.d();
    return *this;
}

ZyXMLDomDocument::~ZyXMLDomDocument() = default;

ZyXMLDomElement ZyXMLDomDocument::root()
{
    QDomDocument & document = d()->document;
    if (document.documentElement().isNull()) {
        document.appendChild(document.createElement(QStringLiteral("DefaultRoot")));
    }
    return ZyXMLDomElement(document.documentElement(), document);
}

/** A document that could not be parsed to its end keeps its beginning; an empty text takes that away too. */
void ZyXMLDomDocument::setContent(ZyString const & text)
{
    QString const content = text.toQString();
    try {
        ZyXMLDomGuard::check(content, "text");
    } catch (...) {
        d()->document.setContent(QString());
        throw;
    }
    if (!d()->document.setContent(content)) {
        d()->document.setContent(QString());
    }
}

ZyString ZyXMLDomDocument::toString() const
{
    return ZyString(ZyXMLDomText::of(d()->document, 1).toStdString());
}

void ZyXMLDomDocument::save(ZyFilePath const & file, SaveType type) const
{
    WholeSaveFile target(NativePath::qt(file));
    if (!target.open(QIODevice::WriteOnly)) {
        throw ZyFileException(ZyString(target.errorString()), file.path());
    }
    target.write(serialised(d()->document, type));
    if (!target.finish()) {
        throw ZyFileException(ZyString(target.errorString()), file.path());
    }
}
