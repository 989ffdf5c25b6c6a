// SPDX-License-Identifier: BSD-3-Clause
// The bar of progress and the signals; what only systems know is in a source of its own for each.

#include "Terminal.h"

#include <ZyException.h>

#include <cmath>
#include <csignal>
#include <cstdio>

namespace
{

std::sig_atomic_t volatile interrupted = 0;

extern "C" void noteInterruption(int)
{
    interrupted = 1;
}

} // namespace

void ProgressBar::begin(QString const & step, unsigned long long total, QString const & parts)
{
    wipe();
    m_step = step;
    m_parts = parts;
    m_total = total;
    m_started.start();
    advance(0);
}

void ProgressBar::advance(unsigned long long done)
{
    int const percent = m_total == 0 ? 0 : int(done * 100 / m_total);
    if (m_shown && isDue(percent)) {
        draw(percent, done);
    }
}

bool ProgressBar::isDue(int percent) const
{
    constexpr qint64 rateEveryMs = 500;
    return percent != m_percent || (!m_parts.isEmpty() && m_started.elapsed() - m_drawnAt >= rateEveryMs);
}

void ProgressBar::draw(int percent, unsigned long long done)
{
    constexpr int width = 30;
    m_percent = percent;
    m_drawnAt = m_started.elapsed();
    QByteArray const bar = QByteArray(percent * width / 100, '#').leftJustified(width, '.');
    std::fprintf(stderr, "\r[%s] %3d %%  %s%s", bar.constData(), percent, m_step.toUtf8().constData(),
                 rate(done).toUtf8().constData());
    std::fflush(stderr);
}

// Blanks at the end cover what is left of a longer text.
QString ProgressBar::rate(unsigned long long done) const
{
    double const seconds = double(m_drawnAt) / 1000.0;
    if (m_parts.isEmpty() || done == 0 || seconds <= 0) {
        return {};
    }
    double const perSecond = double(done) / seconds;
    return QStringLiteral("  %1 %2/s, %3 s left   ")
        .arg(perSecond, 0, 'f', perSecond < 10 ? 1 : 0)
        .arg(m_parts)
        .arg(std::ceil(double(m_total - done) / perSecond), 0, 'f', 0);
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

bool Interruption::noticed()
{
    return interrupted != 0;
}

void Interruption::check()
{
    if (noticed()) {
        throw ZyUserCancelledException();
    }
}
