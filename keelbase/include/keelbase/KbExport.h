// SPDX-License-Identifier: BSD-3-Clause
// The macro that says what crosses the border of the support library.
// Nothing else may stand here: every header of it includes this one.
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
