// SPDX-License-Identifier: BSD-3-Clause
// The values of a run, its figures, its circuit.

#include "SingleRun.h"

#include "AnalysisError.h"
#include "CircuitDocument.h"
#include "Engineering.h"
#include "Merit.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>

namespace
{

void print(QString const & line)
{
    std::fputs((line + u'\n').toUtf8().constData(), stdout);
}

QString withUnit(double value, char const * unit)
{
    return (exactNumber(value) + u' ' + QString::fromUtf8(unit)).trimmed();
}

void writeDocument(Circuit const & circuit, Run const & run, Options const & options)
{
    Circuit changed = circuit;
    changed.title = circuit.title + ZyString(", run ") + ZyString(int(run.number));
    for (std::size_t i = 0; i < changed.components.size(); ++i) {
        changed.components[i].value = run.values[i];
    }
    QDir().mkpath(*options.directory);
    QString const file =
        QDir(*options.directory)
            .filePath(QStringLiteral("%1-%2-case-%3.xml")
                          .arg(QFileInfo(options.circuit).completeBaseName(), nameOf(options.mode))
                          .arg(run.number));
    writeCircuit(file, changed);
    print(QStringLiteral("Written  %1").arg(file));
}

} // namespace

void showRun(Circuit const & circuit, Plan const & plan, Options const & options)
{
    if (options.only > plan.count()) {
        throw AnalysisError::Usage(QStringLiteral("there are %1 runs, and no run %2; --runs tells how many")
                                       .arg(plan.count())
                                       .arg(options.only));
    }
    Run const run = plan.run(options.only);
    Network network(circuit);
    std::vector<double> const frequencies = frequenciesOf(circuit.sweep);
    Response response(network, frequencies);
    network.setValues(run.values);
    response.sweep();

    print(QStringLiteral("Run      %1  %2").arg(run.number).arg(run.name.toQString()));
    if (run.isRandom) {
        print(QStringLiteral("Seed     %1").arg(qlonglong(run.seed)));
    }
    for (std::size_t const i : run.changed) {
        Component const & component = circuit.components[i];
        print(QStringLiteral("  %1 = %2")
                  .arg(component.name.toQString(), withUnit(run.values[i], kindOf(component).unit)));
    }
    print(QStringLiteral("Figures"));
    for (MeritFunction const & merit : circuit.merits) {
        print(QStringLiteral("  %1 = %2")
                  .arg(merit.name.toQString(), withUnit(response.evaluate(merit), kindOf(merit).unit)));
    }
    if (options.directory) {
        writeDocument(circuit, run, options);
    }
}
