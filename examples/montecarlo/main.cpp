// SPDX-License-Identifier: BSD-3-Clause
// zyanalyse: Monte Carlo, worst-case and sensitivity analysis of small linear circuits.

#include "Analysis.h"
#include "AnalysisError.h"
#include "CircuitDocument.h"
#include "Options.h"
#include "SingleRun.h"
#include "Terminal.h"
#include "Work.h"

#include <QGuiApplication>
#include <QTextCodec>

#include <cstdio>
#include <exception>
#include <new>

namespace
{

// Whatever is wrong with the circuit is told with the name of its file.
Circuit usableCircuit(QString const & file)
{
    try {
        Circuit circuit = readCircuit(file);
        checkNominal(circuit);
        return circuit;
    } catch (ZyException const & error) {
        throw AnalysisError::At(file, error.message().toQString());
    }
}

void analyse(Options const & options)
{
    Circuit const circuit = usableCircuit(options.circuit);
    Plan const plan(circuit, options.mode, options.runs, options.seed);
    options.only != 0 ? showRun(circuit, plan, options) : doWork(circuit, plan, options);
}

int fail(char const * where, char const * reason, int status = 1)
{
    std::fprintf(stderr, "%s%s\n", where, reason);
    return status;
}

int run(QStringList const & arguments)
{
    try {
        if (auto const options = parseOptions(arguments)) {
            analyse(*options);
        }
        return 0;
    } catch (Interrupted const & interruption) {
        return fail("zyanalyse: ", interruption.message.toUtf8().constData(), 130);
    } catch (AnalysisError const & error) {
        return fail("", error.what());
    } catch (ZyException const & error) {
        return fail("zyanalyse: ", error.what());
    } catch (std::bad_alloc const &) {
        return fail("zyanalyse: ", "not enough memory");
    } catch (std::exception const & error) {
        return fail("zyanalyse: ", error.what());
    }
}

} // namespace

int main(int argc, char ** argv)
{
    // File names are UTF-8 whatever language the system speaks.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    makeWritesFailGently();
    ScreenlessPainting const screenless;
    QGuiApplication const application(argc, argv); // painting texts needs fonts, and these need it
    return run(QCoreApplication::arguments());
}
