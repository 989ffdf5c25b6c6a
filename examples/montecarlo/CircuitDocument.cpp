// SPDX-License-Identifier: BSD-3-Clause
// A circuit document from the disk and back to it.

#include "CircuitDocument.h"

#include "AnalysisError.h"
#include "SavedFile.h"

#include <ZyFilePath.h>
#include <ZyStringDevice.h>
#include <ZyXMLLoader.h>
#include <ZyXMLStreamElementWriter.h>
#include <ZyXMLStreamReader.h>
#include <ZyXMLStreamWriter.h>
#include <ZyXMLValidator.h>

#include <QFile>
#include <QFileInfo>

#include <memory>
#include <optional>

namespace
{

constexpr char const * rootElement = "Circuit";
// The schema travels inside the program.
constexpr char const * schemaFile = ":/zyanalyse/circuit.xsd";

std::optional<Circuit> load(QString const & file)
{
    std::optional<Circuit> circuit;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<Circuit>(rootElement, [&circuit](ZyUniquePtr<Circuit> loaded) { circuit = *loaded; });
    ZyXMLStreamReader reader{ZyFilePath(ZyString(file))};
    loader->load(reader);
    // Damage between two elements ends the walk without an exception, and only this tells.
    if (reader.tokenType() == ZyXMLStreamReader::Invalid) {
        throw ZyInvalidXMLException(reader.errorString());
    }
    return circuit;
}

} // namespace

QString circuitSchema()
{
    QFile file(QString::fromLatin1(schemaFile));
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

Circuit readCircuit(QString const & file)
{
    if (!QFileInfo(file).isFile()) {
        throw AnalysisError(QStringLiteral("there is no such file"));
    }
    std::optional<Circuit> const circuit = load(file);
    if (!circuit) {
        throw AnalysisError(QStringLiteral("the root element is not Circuit"));
    }
    checkCircuit(*circuit);
    // A library that was built without validation leaves it at the check above.
    if (ZYANALYSE_VALIDATES && !ZyXMLValidator(ZyString(file)).isValid(schemaFile, false)) {
        throw AnalysisError(QStringLiteral(
            "not built as a circuit; \"zyanalyse --schema > circuit.xsd\" and \"xmllint --noout "
            "--schema circuit.xsd\" tell where"));
    }
    return *circuit;
}

void writeCircuit(QString const & file, Circuit const & circuit)
{
    ZyStringDevice text;
    ZyXMLStreamWriter xml(text, ZyXMLStreamWriter::AutoFormattingSettings(true, 2));
    xml.startDocument();
    ZyXMLObject<Circuit>::Write(*xml.createElement(rootElement), circuit);
    xml.finishDocument();

    saveFile(file, QByteArray::fromStdString(text.content().toStdString()));
}
