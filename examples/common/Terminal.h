// SPDX-License-Identifier: BSD-3-Clause
// What the user sees while waiting, and how the user says stop.
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTemporaryDir>

#include <memory>

/** Whether the standard error stream goes to a person. */
bool errorsGoToTerminal();

/**
 * One line with a bar, drawn anew in place and wiped at the end.
 *
 * A step whose parts have a name shows how many of them pass in a second, and the time left.
 */
class ProgressBar
{
public:
    explicit ProgressBar(bool shown) : m_shown(shown) {}
    ProgressBar(ProgressBar const &) = delete;
    ProgressBar & operator=(ProgressBar const &) = delete;
    ~ProgressBar() { wipe(); }

    /** Begins a step of \a total parts. \param parts what they are called, such as "runs"; empty: no rate is
     * shown */
    void begin(QString const & step, unsigned long long total, QString const & parts = QString());
    /** Draws when the bar has grown, and the rate once in a while. */
    void advance(unsigned long long done);
    void wipe();

private:
    bool isDue(int percent) const;
    void draw(int percent, unsigned long long done);
    QString rate(unsigned long long done) const;

    bool m_shown;
    QString m_step;
    QString m_parts;
    QElapsedTimer m_started;
    qint64 m_drawnAt = 0; ///< milliseconds after the start of the step
    unsigned long long m_total = 0;
    int m_percent = -1;
};

/** While one lives, an interrupt is noted and does not end the process: files under way can be removed. */
class Interruption
{
public:
    Interruption();
    Interruption(Interruption const &) = delete;
    Interruption & operator=(Interruption const &) = delete;
    ~Interruption();

    /** Whether the user has interrupted the program. */
    static bool noticed();
    /** \throws ZyUserCancelledException the user has interrupted the program */
    static void check();

private:
    void (*m_interrupt)(int);
    void (*m_terminate)(int);
};

/** A write beyond the limit for file sizes shall fail, as one on a full disk does, and not end the process.
 */
void makeWritesFailGently();

/**
 * To be made before the application object, and to outlive it, by a program that paints pictures and opens no
 * window: it shall run where there is no screen and nobody has logged in. What the user has chosen stays.
 */
class ScreenlessPainting
{
public:
    ScreenlessPainting();

private:
    std::unique_ptr<QTemporaryDir> m_runtime; ///< for Qt, which otherwise makes one that stays
};
