// SPDX-License-Identifier: BSD-3-Clause
// What libraries register while they are loaded.
#pragma once

#include <keelbase/KbExport.h>

/**
 * Registers a slot for a function of the host while it lives; a static object of the library that has the
 * slot.
 *
 * A slot is a variable that holds a pointer to a function. It holds a stub at first, which says that the
 * function is missing. The host fills all slots of a name by offering the function, before or after they are
 * registered; when it withdraws the function, and when this object dies, the stub is back.
 *
 * \threads any; but who calls through a slot takes no lock, so that functions are to be offered before
 */
class KB_API RegisterDynFuncCall
{
public:
    /**
     * \param slot the address of the pointer, which holds the stub and lives longer than this object
     * \param name the name under which the host offers the function
     * \param tag, line where in the source the slot is made
     */
    RegisterDynFuncCall(void * slot, char const * name, char const * tag, int line);
    ~RegisterDynFuncCall();
    RegisterDynFuncCall(RegisterDynFuncCall const &) = delete;
    RegisterDynFuncCall & operator=(RegisterDynFuncCall const &) = delete;
};

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
