// SPDX-License-Identifier: BSD-3-Clause
// The 64-bit integer of our signatures, on compilers that do not know its name.
// A macro and not a typedef, so that `unsigned __int64` works too.
#pragma once

#if !defined(_MSC_VER) && !defined(__int64)
#define __int64 long long
#endif
