// SPDX-License-Identifier: BSD-3-Clause
// The five lines that read a document, and what is to be looked at afterwards.

#include "ThroughRules.h"

#include <ZyFileException.h>
#include <ZyStringDevice.h>
#include <ZyXMLLoader.h>
#include <ZyXMLStreamElementWriter.h>
#include <ZyXMLStreamReader.h>
#include <ZyXMLStreamWriter.h>

#include <QSaveFile>

#include <memory>

namespace
{

Limits load(ZyXMLStreamReader & reader)
{
    Limits limits;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<Limit>(ZyXMLPath{limitsElement, limitElement},
                       [&limits](ZyUniquePtr<Limit> limit) { limits.push_back(*limit); });
    loader->load(reader);
    // Damage between two elements ends the walk without an exception, and only this tells.
    if (reader.tokenType() == ZyXMLStreamReader::Invalid) {
        throw ZyInvalidXMLException(reader.errorString());
    }
    return limits;
}

ZyString documentOf(Limits const & limits)
{
    ZyStringDevice text;
    ZyXMLStreamWriter xml(text, ZyXMLStreamWriter::AutoFormattingSettings(true, 2));
    xml.startDocument();
    {
        auto const root = xml.createElement(limitsElement);
        for (Limit const & limit : limits) {
            ZyXMLObject<Limit>::Write(*root->createElement(limitElement), limit);
        }
    }
    xml.finishDocument();
    return text.content();
}

} // namespace

Limits readByRules(ZyFilePath const & file)
{
    ZyXMLStreamReader reader(file);
    return load(reader);
}

Limits readByRules(ZyFilePath const & file, ZyFilePath const & schema)
{
    ZyXMLStreamReader reader(file, schema);
    return load(reader);
}

void writeAsStream(QString const & file, Limits const & limits)
{
    std::string const text = documentOf(limits).toStdString();
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly) ||
        target.write(text.data(), qint64(text.size())) != qint64(text.size()) || !target.flush() ||
        !target.commit()) {
        throw ZyFileSaveException(ZyString(target.errorString()), ZyString(file));
    }
}
