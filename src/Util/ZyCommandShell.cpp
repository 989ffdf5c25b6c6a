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

/** The handler of the shell in \a holder. \return false: there is no telling */
bool askForHandler(MessageHandlerRef & holder)
{
    bool isTold = false;
    auto ask = [&] {
        if (ShellInterface * const shell = ZyShellSlot::function()) {
            shell->currentHandler(holder);
            isTold = true;
        }
    };
    try {
        ZyPlatform::FaultInfo fault;
        return ZyPlatform::FaultFence::call(ask, fault) && isTold;
    } catch (ZyPlatform::ThreadEnd &) {
        throw;
    } catch (...) {
        return false;
    }
}

/** Does not return where the command throws. A fault is reported here, as throwing it would need the heap. */
void execute(char const * command, CommandOptions & options)
{
    ZyPlatform::FaultInfo fault;
    bool isNull = false;
    auto run = [&] {
        ShellInterface * const shell = ZyShellSlot::function();
        isNull = shell == nullptr;
        if (!isNull) {
            shell->execute(command, nullptr, options);
        }
    };
    bool const isDone = ZyPlatform::FaultFence::call(run, fault);
    if (isNull) {
        fault.code = 0xC0000005; // what a call through it would have come to
    }
    if (isNull || !isDone) {
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
        CommandOptions options;
        // \deliberate{output-of-shell-without-handler} Where the shell does not tell its handler, the command runs all the
        // same and its output is lost.
        if (!askForHandler(options.handler)) {
            options.handler = std::make_shared<NullMessageHandler>();
        }
        options.flag = flag;
        options.third = true;
        execute(command.c_str(), options);
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
