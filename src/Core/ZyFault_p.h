// SPDX-License-Identifier: BSD-3-Clause
// The fault structure for what ended a fenced function. Exported for our tests only.
#pragma once

#include "Platform/FaultFence.h"
#include "Platform/Module.h"

#include <TandobleException.h>

namespace ZyFault
{
/**
 * Tells a fault in words. Takes nothing from the heap, which the fault may have left locked.
 *
 * A floating point fault also puts the floating point unit of the thread right: sp_ResetFpu().
 *
 * \param module that of the faulting instruction; without a file it is told as "unknown" at 0
 */
ZYCORE_EXPORT OsException Make(ZyPlatform::FaultInfo const & fault, ZyPlatform::Module const & module);
} // namespace ZyFault
