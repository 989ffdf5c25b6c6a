// SPDX-License-Identifier: BSD-3-Clause
// zyconvert: turns comma-separated text and rich tables into workbooks, XML sheets, rich tables and clean
// comma-separated text.

#include "Options.h"
#include "Shaping.h"
#include "Summary.h"
#include "TableError.h"
#include "TableReading.h"
#include "Terminal.h"
#include "Writing.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextCodec>

#include <cstdio>
#include <exception>
#include <new>

namespace
{

void convert(Options options)
{
    QElapsedTimer timer;
    timer.start();
    ProgressBar progress(!options.quiet && errorsGoToTerminal());

    progress.begin(options.input, 1);
    Input const input = readInput(options.input, {options.typed, options.headingRows, writesSheet(options)});
    options.headingRows = input.headingRows;
    writeOutputs(ShapedTable(input, options), options, progress);

    progress.wipe();
    if (!options.quiet) {
        printSummary(options, input.facts, input.table, double(timer.elapsed()) / 1000.0);
    }
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
            convert(*options);
        }
        return 0;
    } catch (TableError const & error) {
        return fail("", error.what());
    } catch (ZyUserCancelledException const &) {
        return fail("zyconvert: ", "interrupted; nothing was written", 130);
    } catch (ZyException const & error) {
        return fail("zyconvert: ", error.what());
    } catch (std::bad_alloc const &) {
        return fail("zyconvert: ", "not enough memory");
    } catch (std::exception const & error) {
        return fail("zyconvert: ", error.what());
    }
}

} // namespace

int main(int argc, char ** argv)
{
    // File names are UTF-8 whatever language the system speaks.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    makeWritesFailGently();
    QCoreApplication const application(argc, argv);
    return run(QCoreApplication::arguments());
}
