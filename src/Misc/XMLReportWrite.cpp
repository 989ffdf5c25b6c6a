// SPDX-License-Identifier: BSD-3-Clause
// Writing of result files.
#include <XMLReport.h>

#include "Misc/XMLReport_p.h"
#include "XML/ZyXMLNames_p.h"

#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLDomDocument.h>
#include <ZyXMLDomElement.h>
#include <ZyXMLStreamElementWriter.h>

#include <keelbase/KbRegistry.h>
#include <keelbase/KbText.h>

XMLReportNames::Names const & XMLReportNames::names()
{
    static Names const all;
    return all;
}

namespace
{
using XMLReportNames::names;

struct Attribute
{
    char const * name;
    char const * value;
};

/**
 * What every root says, in the order of the file.
 * \deliberate{schema-location-lacks-the-slash} The location calls the namespace by another name, without the
 * slash at its end: programs that look schemas up by it find none.
 */
constexpr Attribute rootAttributes[] = {
    {"xmlns", ZyXMLNames::msw},
    {"xmlns:xsi", "http://www.w3.org/2001/XMLSchema-instance"},
    {"xsi:schemaLocation", "http://schemas.zycore.example/schemas/application/msw "
                           "http://schemas.zycore.example/schemas/application/msw.xsd"},
    {"version", "1.0"},
    {"rev", "1"},
};

void setUnlessEmpty(ZyXMLDomElement & element, ZyString const & name, YString const & text)
{
    if (!text.isEmpty()) {
        element.setAttribute(name, text);
    }
}

void writeHeader(ZyXMLDomElement element, XMLReportHeader const & header)
{
    setUnlessEmpty(element, names().analysis, header.analysis);
    setUnlessEmpty(element, names().date, header.date);
    if (header.numCores > 0) {
        element.setAttribute(names().numCores, YString(header.numCores));
    }
    setUnlessEmpty(element, names().title, header.title);
    setUnlessEmpty(element, names().group, header.group);
}

void writeMeritFunction(ZyXMLDomElement element, XMLReportMeritFunction const & function, int index,
                        YHashTable<XMLReportInfo> const & table)
{
    element.setAttribute(names().value, function.value);
    element.setAttribute(names().name, function.name);
    table.forEach([&](int, XMLReportInfo const & run) {
        ZyXMLDomElement value = element.addElement(names().sensValue);
        value.setAttribute(names().caseNumber, YString(run.caseNumber));
        sp_WriteElemRealValue(value, names().value, run.sensValues[index].value);
    });
}

void writeParameter(ZyXMLDomElement element, XMLReportParameter const & parameter)
{
    element.setAttribute(names().name, parameter.name);
    sp_WriteElemRealValue(element, names().nominal, parameter.nominal);
    sp_WriteElemRealValue(element, names().usedValue, parameter.usedValue);
    if (parameter.hasTol) {
        sp_WriteElemRealValue(element, names().tol, parameter.tol);
    }
}

void writeStep(ZyXMLDomElement element, XMLReportInfo const & run)
{
    if (run.hasName) {
        element.setAttribute(names().name, run.name);
    }
    element.setAttribute(names().caseNumber, YString(run.caseNumber));
    if (run.hasSeed) {
        element.setAttribute(names().seed, YString(run.seed));
    }
    if (run.hasDescription) {
        element.setAttribute(names().description, run.description);
    }
    for (XMLReportParameter const & parameter : run.parameters) {
        writeParameter(element.addElement(names().parameter), parameter);
    }
}

void writeSteps(ZyXMLDomElement element, YHashTable<XMLReportInfo> const & table)
{
    table.forEach([&](int, XMLReportInfo const & run) { writeStep(element.addElement(names().step), run); });
}

void write(YString const & path, YHashTable<XMLReportInfo> const & table, XMLReportHeader const & header)
{
    ZyXMLDomDocument document;
    ZyXMLDomElement root = document.root();
    sp_DecorateMswRoot(root);
    writeHeader(root.addElement(names().header), header);
    for (int i = 0; i < header.meritFunctions.size(); ++i) {
        writeMeritFunction(root.addElement(names().meritFunction), header.meritFunctions[i], i, table);
    }
    if (!table.isEmpty()) {
        writeSteps(root.addElement(names().steps), table);
    }
    document.save(ZyFilePath(ZyString(path)), ZyXMLDomDocument::Indented);
}
} // namespace

bool sp_WriteMswFile(YString const & path, YHashTable<XMLReportInfo> const & table,
                     XMLReportHeader const & header)
{
    try {
        write(path, table, header);
        return true;
    } catch (...) {
        return false;
    }
}

void sp_DecorateMswRoot(ZyXMLDomElement & root)
{
    root.setName(names().msw);
    for (Attribute const & attribute : rootAttributes) {
        root.setAttribute(attribute.name, attribute.value);
    }
}

void sp_DecorateMswRoot(ZyXMLStreamElementWriter * root)
{
    for (Attribute const & attribute : rootAttributes) {
        root->writeAttribute(attribute.name, attribute.value);
    }
}

bool sp_TestMswVersion(ZyXMLDomElement & root)
{
    return root.attribute(names().version, "1.0") == ZyString("1.0");
}

void sp_WriteElemRealValue(ZyXMLDomElement & element, ZyString const & name, double value)
{
    static bool const isAsciiWanted = sp_GetBoolOption("WriteXMLAsciiReals");
    element.setAttributeBase64(name, value);
    if (isAsciiWanted) {
        element.setAttribute(name + "_ascii", sp_ConvertRealToJSEng(value, 10, true));
    }
}
