// SPDX-License-Identifier: BSD-3-Clause
// Validation by Qt's XML Schema classes, which are kept from the network and from their recursion's end.
#include <ZyXMLValidator.h>

#include "Platform/NativePath.h"
#include "XML/ZyXMLDomGuard_p.h"

#include <ZyException.h>
#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyString.h>

#include <QAbstractMessageHandler>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QSourceLocation>
#include <QThread>
#include <QUrl>
#include <QXmlSchema>
#include <QXmlSchemaValidator>
#include <QXmlStreamReader>

#include <algorithm>
#include <exception>
#include <memory>

class ZyXMLValidator::Private : public ZyPrivateObject
{
public:
    explicit Private(ZyString const & path) : file(path) {}

    ZyString file; ///< the path of the file to test
};

namespace
{
/** Sends every request for anything that is not of this machine to a file that does not exist. */
class LocalOnly : public QNetworkAccessManager
{
protected:
    QNetworkReply * createRequest(Operation operation, QNetworkRequest const & original,
                                  QIODevice * data) override
    {
        QUrl const url = original.url();
        bool const isLocal = (url.scheme() == QLatin1String("file") && url.host().isEmpty()) ||
                             url.scheme() == QLatin1String("data") || url.scheme() == QLatin1String("qrc");
        QNetworkRequest request(original);
        if (!isLocal) {
            request.setUrl(QUrl(QStringLiteral("file:///nonexistent/not-of-this-machine")));
        }
        return QNetworkAccessManager::createRequest(operation, request, data);
    }
};

/** Keeps the last message, whatever its kind. */
class MySchemaMessageHandler : public QAbstractMessageHandler
{
public:
    ZyString const & message() const { return m_message; }

protected:
    void handleMessage(QtMsgType, QString const & description, QUrl const &, QSourceLocation const &) override
    {
        m_message = ZyString(description);
    }

private:
    ZyString m_message;
};

/** Whether a list of addresses has one that is neither of a file nor of the web: Qt may wait for it for ever.
 */
bool asksForMore(QStringRef const & addresses)
{
    for (QStringRef const & address : addresses.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        QString const scheme = QUrl(address.toString()).scheme();
        // A single letter is a drive.
        if (scheme.size() > 1 && scheme != QLatin1String("file") && scheme != QLatin1String("http") &&
            scheme != QLatin1String("https") && scheme != QLatin1String("urn")) {
            return true;
        }
    }
    return false;
}

bool asksForMore(QXmlStreamAttributes const & attributes)
{
    return std::any_of(attributes.begin(), attributes.end(), [](QXmlStreamAttribute const & attribute) {
        return attribute.name().endsWith(QLatin1String("chemaLocation")) && asksForMore(attribute.value());
    });
}

/** Whether the validator, which uses the stack of the machine for elements in each other, can take a
 * document. */
bool isWithinBounds(QIODevice & document)
{
    QXmlStreamReader reader(&document);
    int depth = 0;
    qint64 characters = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            ++depth;
            if (asksForMore(reader.attributes())) {
                return false;
            }
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        case QXmlStreamReader::Characters:
            characters += reader.text().size();
            break;
        default:
            break;
        }
        if (depth > ZyXMLDomGuard::maxDepth || characters > document.size() + ZyXMLDomGuard::maxExpansion) {
            return false;
        }
    }
    return true;
}

class Test
{
public:
    Test(ZyString const & file, ZyString const & schema) : m_file(file), m_schemaPath(schema) {}

    void run()
    {
        m_schema.setNetworkAccessManager(&m_network);
        m_schema.setMessageHandler(&m_handler);
        loadSchema();
        testFile();
    }

private:
    void loadSchema()
    {
        QFile file(NativePath::qt(ZyFilePath(m_schemaPath)));
        if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly)) {
            throw ZyFileNotFoundException(m_schemaPath);
        }
        // Without an address of its own: what it includes by a relative path is not found.
        if (!isWithinBounds(file) || !file.seek(0) || !m_schema.load(&file, QUrl())) {
            throw ZyInvalidXMLSchemaException(m_schemaPath, m_handler.message());
        }
    }

    void testFile()
    {
        QFile file(NativePath::qt(ZyFilePath(m_file)));
        if (!file.open(QIODevice::ReadOnly)) {
            throw ZyFileNotFoundException(m_file);
        }
        QXmlSchemaValidator validator(m_schema);
        validator.setNetworkAccessManager(&m_network);
        validator.setMessageHandler(&m_handler); // which keeps the words from the standard error output
        if (!isWithinBounds(file) || !file.seek(0) ||
            !validator.validate(&file, QUrl::fromLocalFile(file.fileName()))) {
            throw ZyInvalidXMLException(m_file, m_schemaPath);
        }
    }

    ZyString m_file;
    ZyString m_schemaPath;
    LocalOnly m_network;
    MySchemaMessageHandler m_handler;
    QXmlSchema m_schema;
};

/**
 * Runs a function in a thread of its own, and throws here what it throws there. The classes of Qt spin a loop
 * of events for what a document asks to be loaded: in the thread of the caller that would let his own events
 * in, and without an application object it may never end.
 */
template <class Function>
void runApart(Function const & function)
{
    bool hasRun = false;
    std::exception_ptr failure;
    std::unique_ptr<QThread> const thread(QThread::create([&] {
        hasRun = true;
        try {
            function();
        } catch (...) {
            failure = std::current_exception();
        }
    }));
    thread->start();
    thread->wait();
    if (failure) {
        std::rethrow_exception(failure);
    }
    if (!hasRun) { // no thread was to be had, of which Qt tells nobody
        throw ZyXMLException("Cannot start a thread for the validation");
    }
}
} // namespace

ZyXMLValidator::ZyXMLValidator(ZyString const & file) : m_d(new Private(file)) {}

ZyXMLValidator::ZyXMLValidator(ZyXMLValidator const & other)
    : ZyPrivateObject(other), m_d(new Private(*other.d()))
{}

ZyXMLValidator & ZyXMLValidator::operator=(ZyXMLValidator const & other)
{
    *d() = *other.d();
    return *this;
}

ZyXMLValidator::~ZyXMLValidator() = default;

bool ZyXMLValidator::isValid(ZyString const & schema, bool throwOnFailure) const
{
    try {
        runApart([&] { Test(d()->file, schema).run(); });
        return true;
    } catch (ZyException const &) {
        if (throwOnFailure) {
            throw;
        }
        return false;
    }
}
