// SPDX-License-Identifier: BSD-3-Clause
// What libraries register while they are loaded.
#pragma once

#include <keelbase/KbTypes.h>

/**
 * Registers a boolean option of the application while it lives; a static object of the library that asks for
 * the option. Its value is false until the host sets another.
 *
 * \threads any
 */
class KB_API MakeOption
{
public:
    /**
     * \param name the option's name, compared without regard to case
     * \param tag, line where in the source the option is made
     */
    MakeOption(char const * name, char const * tag, int line);
    ~MakeOption();
    MakeOption(MakeOption const &) = delete;
    MakeOption & operator=(MakeOption const &) = delete;
};

/**
 * The value of an option, \a otherwise when there is none of that name.
 *
 * \param name compared without regard to case
 * \threads any
 */
KB_API bool sp_GetBoolOption(char const * name, bool otherwise = false);
