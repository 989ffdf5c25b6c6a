// SPDX-License-Identifier: BSD-3-Clause
// zyworkbench: shows and edits tables.

#include "Options.h"
#include "Settings.h"
#include "Terminal.h"
#include "Workbench.h"

#include <QApplication>
#include <QTextCodec>

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

} // namespace

int main(int argc, char ** argv)
{
    // File names are UTF-8 whatever language the system speaks.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    makeWritesFailGently();
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments << QString::fromUtf8(argv[i]);
    }
    int status = 0;
    auto const options = parseOptions(arguments, status); // asks for help need no display
    if (!options) {
        return status;
    }
    QApplication const application(argc, argv);
    return run(*options);
}
