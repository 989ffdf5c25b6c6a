// SPDX-License-Identifier: BSD-3-Clause
// The terminal and the signals; the only source here that knows of systems.

#include "Terminal.h"

#include <ZyException.h>

#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace
{

std::sig_atomic_t volatile interrupted = 0;

extern "C" void noteInterruption(int)
{
    interrupted = 1;
}

} // namespace

bool errorsGoToTerminal()
{
#ifdef _WIN32
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(fileno(stderr)) != 0;
#endif
}

void ProgressBar::begin(QString const & step, unsigned long long total)
{
    wipe();
    m_step = step;
    m_total = total;
    advance(0);
}

void ProgressBar::advance(unsigned long long done)
{
    int const percent = m_total == 0 ? 0 : int(done * 100 / m_total);
    if (m_shown && percent != m_percent) {
        draw(percent);
    }
}

void ProgressBar::draw(int percent)
{
    constexpr int width = 30;
    m_percent = percent;
    QByteArray const bar = QByteArray(percent * width / 100, '#').leftJustified(width, '.');
    std::fprintf(stderr, "\r[%s] %3d %%  %s", bar.constData(), percent, m_step.toUtf8().constData());
    std::fflush(stderr);
}

void ProgressBar::wipe()
{
    if (m_percent >= 0) {
        std::fputs("\r\033[K", stderr);
        std::fflush(stderr);
        m_percent = -1;
    }
}

Interruption::Interruption()
    : m_interrupt(std::signal(SIGINT, noteInterruption)), m_terminate(std::signal(SIGTERM, noteInterruption))
{}

Interruption::~Interruption()
{
    std::signal(SIGINT, m_interrupt);
    std::signal(SIGTERM, m_terminate);
}

void Interruption::check()
{
    if (interrupted != 0) {
        throw ZyUserCancelledException();
    }
}

void makeWritesFailGently()
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}
