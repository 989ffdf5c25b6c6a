// SPDX-License-Identifier: BSD-3-Clause
// Figures and their spread, files and sizes, time.

#include "Summary.h"

#include "Engineering.h"

#include <QFileInfo>
#include <QLocale>

#include <cmath>
#include <cstdio>

namespace
{

void print(QString const & line)
{
    std::fputs((line + u'\n').toUtf8().constData(), stdout);
}

QString grouped(unsigned long long number)
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::DefaultNumberOptions); // groups of three digits
    return locale.toString(number);
}

QString figureText(MeritFunction const & merit, double value)
{
    QString const unit = QString::fromUtf8(kindOf(merit).unit);
    return unit == QStringLiteral("Hz") ? engineering(value, 5, unit)
                                        : (QString::number(value, 'g', 5) + u' ' + unit).trimmed();
}

void printSpread(MeritFunction const & merit, Spread const & spread)
{
    print(QStringLiteral("  %1  %2   mean %3, deviation %4, from %5 (case %6) to %7 (case %8)%9")
              .arg(merit.title.toQString(), -20)
              .arg(figureText(merit, spread.nominal), figureText(merit, spread.mean),
                   figureText(merit, spread.deviation), figureText(merit, spread.lowest))
              .arg(spread.lowestCase)
              .arg(figureText(merit, spread.highest))
              .arg(spread.highestCase)
              .arg(spread.missing == 0 ? QString()
                                       : QStringLiteral(", none in %1").arg(grouped(spread.missing))));
}

// Which component moves a figure most, by the norm that reading the file has computed.
void printSensitivity(MeritFunction const & merit, int column, Spread const & spread, RunTable const & table)
{
    double norm = 0;
    QString label = QStringLiteral("nothing");
    table.forEach([&](int, XMLReportInfo const & run) {
        XMLReportSensValue const & value = run.sensValues[column];
        if (value.status == XMLReportSensValue::Valid && std::abs(value.norm) > std::abs(norm)) {
            norm = value.norm;
            label = QString::fromUtf8(run.description.c_str());
        }
    });
    print(QStringLiteral("  %1  %2   moved most by %3: %4 % a percent")
              .arg(merit.title.toQString(), -20)
              .arg(figureText(merit, spread.nominal), label)
              .arg(norm, 0, 'g', 3));
}

} // namespace

void printSummary(Circuit const & circuit, Plan const & plan, Options const & options, Report const & report,
                  std::vector<Spread> const & spreads, QStringList const & files)
{
    print(QStringLiteral("Analysed %1: %2, %3 runs, seed %4")
              .arg(circuit.title.toQString(), nameOf(plan.mode()), grouped(plan.count()))
              .arg(options.seed));
    for (std::size_t i = 0; i < spreads.size(); ++i) {
        if (plan.mode() == Mode::Sensitivity) {
            printSensitivity(circuit.merits[i], int(i), spreads[i], report.table);
        } else {
            printSpread(circuit.merits[i], spreads[i]);
        }
    }
    for (QString const & file : files) {
        print(QStringLiteral("Written  %1: %2 bytes")
                  .arg(file, grouped(static_cast<unsigned long long>(QFileInfo(file).size()))));
    }
}

void printTiming(Timing const & timing, Options const & options)
{
    print(QStringLiteral("Time     %1 s").arg(timing.elapsed, 0, 'f', 2));
    if (options.timing) {
        print(QStringLiteral("Solver   %1 s of %2 s processor time, %3 %")
                  .arg(timing.solver, 0, 'f', 3)
                  .arg(timing.process, 0, 'f', 3)
                  .arg(100 * timing.solver / timing.process, 0, 'f', 1));
    }
}
