// SPDX-License-Identifier: BSD-3-Clause
// Commands on their way to the host, and what comes of them.
#include <ZyCommandShell.h>

#include "Core/ZyFault_p.h"
#include "Platform/FaultFence.h"
#include "Platform/Module.h"
#include "Platform/ThreadEnd.h"
#include "Util/ZyShellSlot_p.h"

#include <TandobleException.h>
#include <ZyString.h>

#include <keelbase/KbPrintf.h>

#include <memory>

namespace
{
ShellInterface * missingFunction()
{
    throw DynFuncException(ZyShellSlot::name);
}

void report(TandobleException const & fault)
{
    zy_printf("%s\n", fault.message);
}

void report(ZyPlatform::FaultInfo const & fault)
{
    report(ZyFault::Make(fault, ZyPlatform::moduleOf(fault.address)));
}

/**
 * A command on its way, behind a fence. Both steps share one fence, as putting it up is most of what a
 * command costs; where the first faults, the call is made again for the second.
 */
class Call
{
public:
    Call(char const * command, bool flag) : m_command(command)
    {
        m_options.flag = flag;
        m_options.third = true;
    }

    void operator()()
    {
        if (m_step == AsksForHandler) {
            askForHandler();
            m_step = Executes;
        }
        if (ShellInterface * const shell = ZyShellSlot::function()) {
            shell->execute(m_command, nullptr, m_options);
        } else {
            m_step = HasNoShell;
        }
    }

    /** Whether it has come no further than the first step. */
    bool asksForHandler() const { return m_step == AsksForHandler; }
    bool hasNoShell() const { return m_step == HasNoShell; }

    // \deliberate{output-of-shell-without-handler} Where the shell does not tell its handler, the command runs all the
    // same and its output is lost.
    void goOnWithoutHandler()
    {
        m_options.handler = std::make_shared<NullMessageHandler>();
        m_step = Executes;
    }

private:
    void askForHandler()
    {
        try {
            if (ShellInterface * const shell = ZyShellSlot::function()) {
                shell->currentHandler(m_options.handler);
            } else {
                goOnWithoutHandler();
            }
        } catch (ZyPlatform::ThreadEnd &) {
            throw;
        } catch (...) {
            goOnWithoutHandler();
        }
    }

    enum Step { AsksForHandler, Executes, HasNoShell };

    char const * m_command;
    CommandOptions m_options;
    Step m_step = AsksForHandler;
};

/** Does not return where the command throws. A fault is reported here, as throwing it would need the heap. */
void carryOut(Call & call)
{
    ZyPlatform::FaultInfo fault;
    bool isDone = ZyPlatform::FaultFence::call(call, fault);
    if (!isDone && call.asksForHandler()) {
        call.goOnWithoutHandler();
        isDone = ZyPlatform::FaultFence::call(call, fault);
    }
    if (call.hasNoShell()) {
        fault = ZyPlatform::FaultInfo();
        fault.code = 0xC0000005; // what a call through it would have come to
    }
    if (!isDone || call.hasNoShell()) {
        report(fault);
    }
}

// \deliberate{command-place-in-source} The place that is printed is the one under which the suite knows this source.
void reportUnknown()
{
    zy_printf("Unhandled exception caught in module %s at line %d\n", "..\\src\\Util\\ZyCommandShell", 83);
}
} // namespace

ShellFunction ZyShellSlot::function = missingFunction;

void ZyCommandShell::RunCommand(ZyString const & command, bool flag)
{
    try {
        Call call(command.c_str(), flag);
        carryOut(call);
    } catch (ZyPlatform::ThreadEnd &) {
        throw;
    } catch (TandobleException const & fault) {
        report(fault);
    } catch (...) {
        reportUnknown();
    }
}

void ZyCommandShell::PrintMessage(ZyString const & message)
{
    zy_printf(message.c_str());
}
