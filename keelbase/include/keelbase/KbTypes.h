// SPDX-License-Identifier: BSD-3-Clause
// The 64-bit integer of the support library.
#pragma once

/** Signed, 64 bits wide. Not std::int64_t, which is another type on some systems and makes overloads
 * ambiguous. */
using kb_int64 = long long;
