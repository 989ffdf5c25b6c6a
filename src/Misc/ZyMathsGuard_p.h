// SPDX-License-Identifier: BSD-3-Clause
// The guard under which the functions of ZyMaths run that can fail. Exported for our tests only.
#pragma once

#include <ZyExport.h>

#include <functional>

namespace ZyMathsGuard
{
/**
 * Calls \a function and turns what goes wrong in it into an exception of the maths family.
 *
 * The flags of the processor and errno are cleared first, so that a failure of long ago does not count, and
 * afterwards tell of the guarded function alone.
 *
 * The function comes as an object, to a place that the compiler does not see through: code that it moves into
 * the guard loses its place between clearing the flags and testing them.
 *
 * \throws ZyInvalidOperationMathsException, ZyDivideByZeroException, ZyOverflowException,
 *         ZyUnderflowException see Check(); or \a function threw one
 * \throws ZyMathsException see Check(); or \a function is empty or threw anything else
 */
ZYCORE_EXPORT double Run(std::function<double()> const & function);

/**
 * Returns where a result is good. Flags are looked at in a fixed order; an inexact result is no failure.
 *
 * \param raised the flags that the calculation raised
 * \param error errno after it; counts only where no flag is raised
 */
ZYCORE_EXPORT void Check(int raised, int error);

/** Throws the exception for the code of a structured exception, after putting the floating point unit right.
 */
[[noreturn]] ZYCORE_EXPORT void Translate(unsigned int code);
} // namespace ZyMathsGuard
