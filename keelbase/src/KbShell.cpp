// SPDX-License-Identifier: BSD-3-Clause
// Handlers of output, and the shell that a test puts into the place of the host's.
#include <keelbase/KbHost.h>
#include <keelbase/KbShell.h>

#include <atomic>

namespace
{
constexpr char const * functionName = "widgets_GetShellInterface";

std::atomic<ShellInterface *> scopedShell = nullptr;

ShellInterface * getScopedShell()
{
    return scopedShell;
}
} // namespace

MessageHandler::~MessageHandler() = default;

void NullMessageHandler::message(YString const &) {}

kb::ScopedShell::ScopedShell(ShellInterface * shell)
    : m_function(OfferedFunction(functionName)), m_shell(scopedShell.exchange(shell))
{
    OfferFunction(functionName, reinterpret_cast<Function>(getScopedShell));
}

kb::ScopedShell::~ScopedShell()
{
    scopedShell = m_shell;
    if (m_function != nullptr) {
        OfferFunction(functionName, m_function);
    } else {
        WithdrawFunction(functionName);
    }
}
