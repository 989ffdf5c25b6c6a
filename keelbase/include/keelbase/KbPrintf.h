// SPDX-License-Identifier: BSD-3-Clause
// The suite's formatted output.
#pragma once

#include <keelbase/KbExport.h>
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

/**
 * Writes text to the output of the application, at once.
 *
 * The format may be anything, the text of a user included. It is read as by printf: "%%" is a sign; a
 * directive is "%", flags out of "-+ #0", a width, "." and a precision, a length, and one of these letters:
 *
 * - d i u c o x X: an integer. Of a real number what stands before the point; text counts as 0. Lengths (h hh
 *   l ll L q j z t I32 I64) have no meaning, since arguments carry their kind; negative numbers that fit into
 *   an int are as wide as one for u, o, x and X.
 * - e E f F g G a A: a real number, with a point in every locale. Text counts as 0.
 * - s: text, "(null)" where there is none; a number in decimal.
 * - n p: nothing at all. They use up their argument.
 *
 * "*" takes the width or the precision from an argument; either counts as 512 at most. Each directive uses up
 * the next argument; beyond the fourth all are empty text. Anything else, and a directive that the end cuts
 * off, comes out as it stands: "100%" is "100%".
 *
 * What the receiver of the output throws is dropped.
 *
 * \param format terminated; null: nothing is written
 * \threads any
 */
KB_API void zy_printf(char const * format, PrintfArg first = {}, PrintfArg second = {}, PrintfArg third = {},
                      PrintfArg fourth = {});
