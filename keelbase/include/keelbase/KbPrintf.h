// SPDX-License-Identifier: BSD-3-Clause
// One argument of the suite's formatted output.
#pragma once

#include <keelbase/KbTypes.h>

/**
 * An argument that carries its own kind: two words, then the value. A default one is text with a null
 * pointer. It does not own the text, which must live as long as the argument is used.
 */
struct PrintfArg
{
    /** What #value holds. */
    enum Kind { Text = 0, Int = 1, Real = 2 };

    /** The value, as #kind says. */
    union Value {
        char const * text;
        kb_int64 i;
        double d;
    };

    int kind = Text;
    int spare = 0; ///< always zero
    Value value = {nullptr};

    PrintfArg() = default;
    PrintfArg(char const * text) { value.text = text; }
    PrintfArg(int number) : PrintfArg(static_cast<kb_int64>(number)) {}
    PrintfArg(unsigned number) : PrintfArg(static_cast<kb_int64>(number)) {}
    PrintfArg(kb_int64 number) : kind(Int) { value.i = number; }
    PrintfArg(double number) : kind(Real) { value.d = number; }
};
