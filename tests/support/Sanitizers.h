// SPDX-License-Identifier: BSD-3-Clause
// Under which sanitizer a test is compiled: they keep freed memory, need more of it, and handle faults.
#pragma once

#if defined(__SANITIZE_ADDRESS__)
#define ZY_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZY_ADDRESS_SANITIZER 1
#endif
#endif
#if defined(__SANITIZE_THREAD__)
#define ZY_THREAD_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define ZY_THREAD_SANITIZER 1
#endif
#endif
#ifndef ZY_ADDRESS_SANITIZER
#define ZY_ADDRESS_SANITIZER 0
#endif
#ifndef ZY_THREAD_SANITIZER
#define ZY_THREAD_SANITIZER 0
#endif
