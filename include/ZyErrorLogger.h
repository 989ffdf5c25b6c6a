// SPDX-License-Identifier: BSD-3-Clause
// A collector of errors and warnings.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyString.h>
#include <ZyVector.h>

/**
 * Collects errors and warnings, and passes them on to Qt's debug stream as they come.
 *
 * \code
 * ZyErrorLogger log;
 * log.warning("Gain is not set");
 * log.hasWarnings();   // true
 * log.hasErrors();     // false
 * \endcode
 *
 * A logger throws nothing of its own and forgets nothing. The debug stream shows each text in double quotes,
 * with quotes, control characters and line ends escaped. Nothing in the library logs.
 *
 * Not copied: who logs is handed a reference. \threads one thread at a time
 */
class ZYCORE_EXPORT ZyErrorLogger
{
public:
    /** Nothing logged. */
    ZyErrorLogger();
    ZyErrorLogger(ZyErrorLogger const &) = delete;
    virtual ~ZyErrorLogger();
    ZyErrorLogger & operator=(ZyErrorLogger const &) = delete;

    /** Keeps an error, and writes it to the debug stream. */
    void error(ZyString const & text);
    /** Keeps a warning, and writes it to the debug stream. */
    void warning(ZyString const & text);
    /** Writes to the debug stream and keeps nothing. */
    void debugMessage(ZyString const & text);

    /** Whether there was an error. */
    bool hasErrors() const;
    /** Whether there was a warning. */
    bool hasWarnings() const;
    /** The errors in the order of their coming, on loan. */
    ZyVector<ZyString> const & errors() const;
    /** The warnings in the order of their coming, on loan. */
    ZyVector<ZyString> const & warnings() const;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
