// SPDX-License-Identifier: BSD-3-Clause
// The configuration of the suite: named sections of keys with text values.
#pragma once

#include <keelbase/YContainers.h>
#include <keelbase/YString.h>

// Names compare by bytes; a null pointer counts as the empty text. Where the configuration lies is the host's
// choice (kb::UseConfigFile), at first in memory. A file is read at each call, and so shows what other
// processes have written. Any thread.

/**
 * The value of a key.
 *
 * \param value takes the value; unchanged when there is none; may be null
 * \param reserved has no meaning here
 * \return 1, or 0 when there is no such key, or the file cannot be read
 */
KB_API int cfgman_GetConfigSetting(char const * section, char const * key, YString * value, bool reserved);

/**
 * Stores the value of a key. A new section and a new key come last; another value keeps the place of the key.
 *
 * A file is replaced as a whole, or stays as it was. Writers wait for each other, so that no setting of any
 * of them is lost.
 *
 * \return 1, or 0 when the file cannot be read or written: it is no regular file, is read-only, or its
 * directory is
 */
KB_API int cfgman_WriteConfigSetting(char const * section, char const * key, char const * value);

/**
 * The keys of a section, in their order.
 *
 * \param names takes the keys in place of what it holds; unchanged when there is no section; may be null
 * \param reserved has no meaning here
 * \return false when there is no such section, or the file cannot be read
 */
KB_API bool cfgman_GetConfigKeyNames(YString const & section, YList<YString> * names, bool reserved);
