// SPDX-License-Identifier: BSD-3-Clause
// Reading of result files, with the files that they append, and adding a merit function to one.
#include <XMLReport.h>

#include "Misc/XMLReport_p.h"
#include "Platform/NativePath.h"

#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLDomDocument.h>
#include <ZyXMLDomElement.h>

#include <keelbase/KbText.h>

#include <QFileInfo>

#include <algorithm>
#include <stdexcept>

namespace
{
using XMLReportNames::names;

/** Files in each other. */
constexpr int maxDepth = 5;
/** Files altogether: a few that name each other often would otherwise be read for years. */
constexpr int maxFiles = 65536;

/** Reads files into one table and one header. */
class Reader
{
public:
    Reader(YHashTable<XMLReportInfo> & table, XMLReportHeader & header)
        : m_table(table), m_header(header), m_records(header.meritFunctions.size())
    {
        table.forEach([&](int, XMLReportInfo const & run) {
            m_records += 1 + run.sensValues.size() + run.parameters.size();
        });
    }

    /** What was read before a failure stays. */
    bool read(YString const & path)
    {
        try {
            spendFile();
            ZyFilePath const file{ZyString(path)};
            if (m_depth > 0 && !isFile(file)) {
                return false;
            }
            ZyXMLDomDocument document(file);
            ZyXMLDomElement root = document.root();
            return sp_TestMswVersion(root) && readRoot(root);
        } catch (...) {
            return false;
        }
    }

private:
    bool readRoot(ZyXMLDomElement const & root)
    {
        bool result = true;
        for (ZyXMLDomElement const & child : root.children()) {
            ZyString const name = child.name();
            if (name == names().append) {
                result = readAppended(child, result);
            } else if (name == names().header) {
                readHeader(child);
            } else if (name == names().meritFunction) {
                readMeritFunction(child);
            } else if (name == names().steps) {
                readSteps(child);
            }
        }
        return result;
    }

    /** A failure keeps the files behind it from being read, but not the rest of this one. */
    bool readAppended(ZyXMLDomElement const & element, bool result)
    {
        for (ZyXMLDomElement const & file : element.children(names().file)) {
            ++m_depth;
            result = m_depth < maxDepth && result && read(file.attribute(names().path));
            --m_depth;
        }
        return result;
    }

    /** A pipe or a device, which any file could name, would never end. */
    static bool isFile(ZyFilePath const & path) { return QFileInfo(NativePath::qt(path)).isFile(); }

    void readHeader(ZyXMLDomElement const & element)
    {
        if (element.attribute(names().coreId, "0").toInt() != 0) {
            return;
        }
        ZyString const unknown = "unknown";
        m_header.numCores = element.attribute(names().numCores, "0").toInt();
        m_header.date = element.attribute(names().date, unknown);
        m_header.title = element.attribute(names().title, unknown);
        m_header.analysis = element.attribute(names().analysis, unknown);
        m_header.group = element.attribute(names().group, unknown);
    }

    void readMeritFunction(ZyXMLDomElement const & element)
    {
        int const index = m_header.meritFunctions.size();
        spend(1);
        m_header.meritFunctions.add(
            {element.attribute(names().value, ""), element.attribute(names().name, "")});
        for (ZyXMLDomElement const & value : element.children(names().sensValue)) {
            int const caseNumber = value.attribute(names().caseNumber).toInt();
            double const number = value.attributeBase64(names().value);
            XMLReportInfo & run = runOf(caseNumber);
            spend(std::max(0, index + 1 - run.sensValues.size()));
            run.sensValues[index].value = number;
        }
    }

    void readSteps(ZyXMLDomElement const & element)
    {
        for (ZyXMLDomElement const & step : element.children(names().step)) {
            readStep(step);
        }
    }

    /** \deliberate{read-descriptions-are-not-marked} A description that was read is not one to be written. */
    void readStep(ZyXMLDomElement const & element)
    {
        XMLReportInfo & run = runOf(element.attribute(names().caseNumber).toInt());
        if (element.hasAttribute(names().seed)) {
            run.seed = sp_atoi64(element.attribute(names().seed).c_str());
            run.hasSeed = true;
        }
        // As they are kept, which is up to a zero byte: nothing may be left.
        YString const name = element.attribute(names().name, "");
        YString const description = element.attribute(names().description, "");
        if (!name.isEmpty()) {
            run.name = name;
            run.hasName = true;
        } else {
            run.description = description.isEmpty() ? YString("Run=") + YString(run.caseNumber) : description;
        }
        for (ZyXMLDomElement const & parameter : element.children(names().parameter)) {
            spend(1);
            run.parameters.add(parameterOf(parameter));
        }
    }

    static XMLReportParameter parameterOf(ZyXMLDomElement const & element)
    {
        XMLReportParameter result;
        result.name = element.attribute(names().name, "");
        result.nominal = element.attributeBase64(names().nominal);
        result.usedValue = element.attributeBase64(names().usedValue);
        result.hasTol = element.hasAttribute(names().tol);
        if (result.hasTol) {
            result.tol = element.attributeBase64(names().tol);
        }
        return result;
    }

    /** The run with a case number, which may be a new one. */
    XMLReportInfo & runOf(int caseNumber)
    {
        if (XMLReportInfo * const known = m_table.find(caseNumber)) {
            return *known;
        }
        spend(1);
        XMLReportInfo run;
        run.caseNumber = caseNumber;
        return m_table.add(caseNumber, run);
    }

    void spend(int records)
    {
        m_records += records;
        if (m_records > XMLReport::maxRecords) {
            throw std::length_error("too many records");
        }
    }

    void spendFile()
    {
        if (++m_files > maxFiles) {
            throw std::length_error("too many files");
        }
    }

    YHashTable<XMLReportInfo> & m_table;
    XMLReportHeader & m_header;
    long long m_records;
    int m_files = 0;
    int m_depth = 0;
};

bool compile(YString const & path, YHashTable<XMLReportInfo> & table, XMLReportHeader & header)
{
    bool const wasRead = Reader(table, header).read(path);
    bool const wasComputed = XMLReport::computeDeltas(table);
    XMLReport::makeLabels(table);
    return wasRead && wasComputed;
}

/** Gives the runs of some cases their value of the last merit function. */
bool addValues(YHashTable<XMLReportInfo> & table, int index, YVector<double> const & values,
               YVector<int> const & cases)
{
    for (int i = 0; i < cases.size(); ++i) {
        XMLReportInfo * const run = table.find(cases[i]);
        if (!run || run->sensValues.size() != index) {
            return false;
        }
        run->sensValues[index].value = values[i];
    }
    return true;
}

bool append(YString const & path, XMLReportMeritFunction const & function, YVector<double> const & values,
            YVector<int> const & cases)
{
    YHashTable<XMLReportInfo> table;
    XMLReportHeader header;
    if (values.size() != cases.size() || !Reader(table, header).read(path)) {
        return false;
    }
    int const index = header.meritFunctions.size();
    header.meritFunctions.add(function);
    return addValues(table, index, values, cases) && sp_WriteMswFile(path, table, header);
}
} // namespace

bool sp_CompileSensReportData(YString const & path, YHashTable<XMLReportInfo> * table,
                              XMLReportHeader * header)
{
    try {
        return table && header && compile(path, *table, *header);
    } catch (...) {
        return false;
    }
}

bool sp_AppendMeritData(YString const & path, YString const & value, YString const & name,
                        YVector<double> const & values, YVector<int> const & cases)
{
    try {
        return append(path, {value, name}, values, cases);
    } catch (...) {
        return false;
    }
}
