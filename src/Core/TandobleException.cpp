// SPDX-License-Identifier: BSD-3-Clause
// The call of a missing function, in words.
#include <TandobleException.h>

#include <cstdio>

DynFuncException::DynFuncException(char const * function)
{
    std::snprintf(message, sizeof message, "*** FATAL ERROR *** Unresolved dynamic function '%s' called",
                  function != nullptr ? function : "");
}
