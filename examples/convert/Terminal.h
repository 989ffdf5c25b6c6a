// SPDX-License-Identifier: BSD-3-Clause
// What the user sees while waiting, and how the user says stop.
#pragma once

#include <QString>

#include <csignal>

/** Whether the standard error stream goes to a person. */
bool errorsGoToTerminal();

/** One line with a bar, drawn anew in place and wiped at the end. */
class ProgressBar
{
public:
    explicit ProgressBar(bool shown) : m_shown(shown) {}
    ProgressBar(ProgressBar const &) = delete;
    ProgressBar & operator=(ProgressBar const &) = delete;
    ~ProgressBar() { wipe(); }

    /** Begins a step. */
    void begin(QString const & step, unsigned long long total);
    /** Draws when the bar has grown. */
    void advance(unsigned long long done);
    void wipe();

private:
    void draw(int percent);

    bool m_shown;
    QString m_step;
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

    /** \throws ZyUserCancelledException the user has interrupted the program */
    static void check();

private:
    void (*m_interrupt)(int);
    void (*m_terminate)(int);
};

/** A write beyond the limit for file sizes shall fail, as one on a full disk does, and not end the process.
 */
void makeWritesFailGently();
