// SPDX-License-Identifier: BSD-3-Clause
// What only the system knows of terminals, limits and screens.
#include "Terminal.h"

#include <csignal>
#include <cstdio>

#include <unistd.h>

bool errorsGoToTerminal()
{
    return isatty(fileno(stderr)) != 0;
}

void makeWritesFailGently()
{
    std::signal(SIGXFSZ, SIG_IGN);
}

ScreenlessPainting::ScreenlessPainting()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        m_runtime = std::make_unique<QTemporaryDir>();
        qputenv("XDG_RUNTIME_DIR", m_runtime->path().toUtf8());
    }
}
