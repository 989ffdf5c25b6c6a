// SPDX-License-Identifier: BSD-3-Clause
// zyworkbench: shows and edits tables.

#include "Options.h"
#include "Settings.h"
#include "Terminal.h"
#include "Workbench.h"

#include <QApplication>
#include <QTextCodec>

#include <optional>

namespace
{

int run(Options const & options)
{
    Settings::UseFile(options.config);
    Workbench window;
    window.show();
    if (!options.file.isEmpty()) {
        window.openFile(options.file);
    }
    return QApplication::exec();
}

// Who asks for help need not have a display.
std::optional<Options> optionsOf(int & argc, char ** argv, int & status)
{
    QCoreApplication const application(argc, argv);
    return parseOptions(QCoreApplication::arguments(), status);
}

} // namespace

int main(int argc, char ** argv)
{
    // File names are UTF-8 whatever language the system speaks.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    makeWritesFailGently();
    int status = 0;
    auto const options = optionsOf(argc, argv, status);
    if (!options) {
        return status;
    }
    QApplication const application(argc, argv);
    return run(*options);
}
