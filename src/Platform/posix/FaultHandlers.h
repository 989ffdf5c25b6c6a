// SPDX-License-Identifier: BSD-3-Clause
// The handlers of the signals that tell faults, and the ones of the host behind them.
#pragma once

#include "Platform/FaultFence.h"

#include <csignal>

namespace FaultHandlers
{
/** The signals that tell faults. */
sigset_t const & signals();

/** Those of them that are in \a mask. \return whether there are any */
bool intersects(sigset_t const & mask, sigset_t & common);

/**
 * Puts our handlers before whatever handlers there are now; does nothing where they are. They stay for the
 * life of the process. Costs a call of the system a signal.
 */
void keepInstalled();

/** What a signal says in the terms of a fault. */
ZyPlatform::FaultInfo describe(int signal, siginfo_t const * info, void const * context);

/** Jumps to the innermost fence of the thread. \return false: there is none */
bool jump(int signal, siginfo_t const * info, void const * context);
} // namespace FaultHandlers
