// SPDX-License-Identifier: BSD-3-Clause
// The export macro of the support library and its 64-bit integer.
#pragma once

#if defined(_WIN32)
#if defined(KEELBASE_BUILDING)
#define KB_API __declspec(dllexport)
#else
#define KB_API __declspec(dllimport)
#endif
#else
#define KB_API __attribute__((visibility("default")))
#endif

/** Signed, 64 bits wide. Not std::int64_t, which is another type on some systems and makes overloads
 * ambiguous. */
using kb_int64 = long long;
