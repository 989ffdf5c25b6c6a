// SPDX-License-Identifier: BSD-3-Clause
// Records of runs, and streams of them.

#include "Recording.h"

#include "AnalysisError.h"
#include "SavedFile.h"

#include <ZyFilePath.h>

#include <QFileInfo>

namespace
{

XMLReportParameter parameterOf(Component const & component, double used)
{
    XMLReportParameter parameter;
    parameter.name = yString(component.name);
    parameter.nominal = component.value;
    parameter.usedValue = used;
    parameter.hasTol = component.tolerance > 0;
    parameter.tol = component.tolerance;
    return parameter;
}

XMLReportInfo recordOf(Circuit const & circuit, RunResult const & result)
{
    XMLReportInfo record;
    record.caseNumber = int(result.run.number);
    record.name = yString(result.run.name);
    record.hasName = true;
    record.seed = result.run.seed;
    record.hasSeed = result.run.isRandom;
    for (double const figure : result.figures) {
        XMLReportSensValue value;
        value.value = figure;
        record.sensValues.add(value);
    }
    for (std::size_t const i : result.run.changed) {
        record.parameters.add(parameterOf(circuit.components[i], result.run.values[i]));
    }
    return record;
}

} // namespace

YString yString(QString const & text)
{
    return {text.toUtf8().constData()};
}

YString yString(ZyString const & text)
{
    return {text.c_str()};
}

XMLReportHeader headerOf(Circuit const & circuit, Plan const & plan, Options const & options)
{
    XMLReportHeader header;
    header.date = circuit.date.isEmpty() ? YString("unknown") : yString(circuit.date);
    header.title = yString(circuit.title);
    header.group = yString(QFileInfo(options.circuit).completeBaseName());
    header.analysis = yString(
        QStringLiteral("%1 runs=%2 seed=%3").arg(nameOf(plan.mode())).arg(plan.count()).arg(options.seed));
    for (MeritFunction const & merit : circuit.merits) {
        header.meritFunctions.add({yString(headingOf(merit)), yString(merit.name)});
    }
    return header;
}

RunTable tableOf(Circuit const & circuit, Results const & results)
{
    RunTable table;
    for (RunResult const * const result : results) {
        table.add(int(result->run.number), recordOf(circuit, *result));
    }
    return table;
}

void writeMswFile(QString const & file, RunTable const & table, XMLReportHeader const & header)
{
    if (!sp_WriteMswFile(yString(file), table, header)) {
        throw AnalysisError::At(file, QStringLiteral("cannot be written"));
    }
}

void readMswFile(QString const & file, RunTable & table, XMLReportHeader & header)
{
    if (!sp_CompileSensReportData(yString(file), &table, &header)) {
        throw AnalysisError::At(file, QStringLiteral("cannot be read back"));
    }
}

MswStream::MswStream(QString const & file, Circuit const & circuit)
    : m_file(file), m_circuit(circuit),
      m_writer(ZyFilePath(ZyString(file)), ZyXMLStreamWriter::AutoFormattingSettings(true, 1))
{
    m_writer.startDocument();
    m_root = m_writer.createElement("msw");
    sp_DecorateMswRoot(m_root.get());
}

void MswStream::header(XMLReportHeader const & header)
{
    auto const element = m_root->createElement("header");
    element->writeAttribute("analysis", header.analysis.c_str());
    element->writeAttribute("date", header.date.c_str());
    element->writeAttribute("title", header.title.c_str());
    element->writeAttribute("group", header.group.c_str());
}

void MswStream::headerOfPart(unsigned int core)
{
    m_root->createElement("header")->writeAttribute("coreid", ZyString(int(core)));
}

void MswStream::step(Run const & run)
{
    if (!m_steps) {
        m_steps = m_root->createElement("steps");
    }
    auto const step = m_steps->createElement("step");
    step->writeAttribute("name", run.name);
    step->writeAttribute("case", ZyString(int(run.number)));
    if (run.isRandom) {
        step->writeAttribute("seed", ZyString(QString::number(qlonglong(run.seed))));
    }
    for (std::size_t const i : run.changed) {
        Component const & component = m_circuit.components[i];
        auto const parameter = step->createElement("parameter");
        parameter->writeAttribute("name", component.name);
        parameter->writeAttributeBase64("nom", component.value);
        parameter->writeAttributeBase64("usedvalue", run.values[i]);
        if (component.tolerance > 0) {
            parameter->writeAttributeBase64("tol", component.tolerance);
        }
    }
}

void MswStream::figures(Results const & results)
{
    endSteps();
    for (std::size_t merit = 0; merit < m_circuit.merits.size(); ++merit) {
        auto const element = m_root->createElement("meritfunction");
        element->writeAttribute("value", headingOf(m_circuit.merits[merit]));
        element->writeAttribute("name", m_circuit.merits[merit].name);
        for (RunResult const * const result : results) {
            auto const value = element->createElement("sensval");
            value->writeAttribute("case", ZyString(int(result->run.number)));
            value->writeAttributeBase64("value", result->figures[merit]);
        }
    }
}

void MswStream::append(QStringList const & files)
{
    endSteps();
    auto const element = m_root->createElement("append");
    for (QString const & file : files) {
        element->createElement("file")->writeAttribute("path", ZyString(file));
    }
}

void MswStream::finish()
{
    endSteps();
    m_root.reset();
    m_writer.finishDocument();
    checkEnd(m_file, QByteArrayLiteral("</msw>\n"));
}

QString shardFile(QString const & stem, unsigned int shard)
{
    return QStringLiteral("%1-shard-%2.msw").arg(stem).arg(shard);
}

// The figures stand in the master file only: readers make a column of every merit function of every file.
// Paths are absolute, since readers would take them from the directory they work in.
QString writeShards(QString const & stem, Circuit const & circuit, XMLReportHeader const & header,
                    Results const & results, unsigned int shards)
{
    QStringList files;
    for (unsigned int shard = 0; shard < shards; ++shard) {
        files.append(QFileInfo(shardFile(stem, shard + 1)).absoluteFilePath());
        MswStream part(files.constLast(), circuit);
        part.headerOfPart(shard + 1);
        for (std::size_t i = results.size() * shard / shards; i < results.size() * (shard + 1) / shards;
             ++i) {
            part.step(results[i]->run);
        }
        part.finish();
    }
    QString file = stem + QStringLiteral("-master.msw");
    MswStream master(file, circuit);
    master.header(header);
    master.figures(results);
    master.append(files);
    master.finish();
    return file;
}

LiveFile::LiveFile(QString const & file, Circuit const & circuit, XMLReportHeader const & header)
    : m_stream(file, circuit)
{
    m_stream.header(header);
}

void LiveFile::update(Analysis const & analysis)
{
    while (m_written < analysis.count()) {
        RunResult const * const result = analysis.result(m_written + 1);
        if (result == nullptr) {
            return;
        }
        m_stream.step(result->run);
        ++m_written;
    }
}

void LiveFile::finish(Results const & results)
{
    for (RunResult const * const result : results) {
        if (result->run.number > m_written) {
            m_stream.step(result->run);
        }
    }
    m_stream.figures(results);
    m_stream.finish();
}
