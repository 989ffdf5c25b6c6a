// SPDX-License-Identifier: BSD-3-Clause
// The two macros that say what crosses the border of the shared library and what does not.
// Nothing else may stand here: every public header includes this one.
#pragma once

#if defined(_WIN32)
#if defined(ZYCORE_BUILDING)
#define ZYCORE_EXPORT __declspec(dllexport)
#else
#define ZYCORE_EXPORT __declspec(dllimport)
#endif
#define ZYCORE_PRIVATE
#else
#define ZYCORE_EXPORT __attribute__((visibility("default")))
#define ZYCORE_PRIVATE __attribute__((visibility("hidden")))
#endif
