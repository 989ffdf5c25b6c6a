// SPDX-License-Identifier: BSD-3-Clause
// What the suite asks of the operating system.
#pragma once

#include <keelbase/YString.h>

/**
 * The path, in UTF-8 and with forward slashes, of a file that does not exist yet: in the temporary directory,
 * named "zy_", 16 random hexadecimal digits, ".tmp". Nothing is created, and the name cannot be guessed.
 *
 * \throws std::runtime_error the system gives no random bytes
 * \threads any
 */
KB_API YString sp_GetTempFile();
