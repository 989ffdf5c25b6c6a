// SPDX-License-Identifier: BSD-3-Clause
// Commands for the application that the library lives in.
#pragma once

#include <ZyExport.h>

class ZyString;

/**
 * Hands commands and messages to the host, whose interpreter carries the commands out.
 *
 * \code
 * ZyCommandShell::RunCommand("open 'amplifier.msw'", false);
 * ZyCommandShell::PrintMessage("Done\n");
 * \endcode
 *
 * The host offers its interpreter to the support library as the function "widgets_GetShellInterface", which
 * gives a ShellInterface. It does so while its modules are loaded, before commands come from several threads.
 */
class ZYCORE_EXPORT ZyCommandShell
{
public:
    /**
     * Has the host carry a command out, and returns when that is done, however it ends: a failure is printed
     * and not told to the caller.
     *
     * - The host throws one of the structures of TandobleException.h: its message is printed.
     * - It faults: likewise, with the words of OsException. Where the system jumps out of the fault, what the
     *   command had under way is dropped and not unwound: locks stay held, memory is not given back.
     * - It throws anything else:
     *   "Unhandled exception caught in module ..\src\Util\ZyCommandShell at line 83".
     * - There is no host:
     *   "*** FATAL ERROR *** Unresolved dynamic function 'widgets_GetShellInterface' called".
     *
     * Faults of other threads are nobody's business here, and the handlers of the host for its own faults
     * stay in force.
     *
     * The output of the command goes to the handler that the shell has in force; where it cannot tell one,
     * the output is dropped.
     *
     * \param command the text as it is, up to its first NUL
     * \param flag is handed to the host, which knows what it means
     * \threads any, as far as the host's interpreter allows it \cost some microseconds beside the command
     */
    static void RunCommand(ZyString const & command, bool flag);

    /**
     * Prints to the output of the application.
     *
     * \deliberate{message-is-format} The message is a format for zy_printf() without arguments: "%%" prints one sign,
     * "%s" prints "(null)". Who prints arbitrary text doubles the signs.
     *
     * \param message up to its first NUL
     * \threads any
     */
    static void PrintMessage(ZyString const & message);
};
