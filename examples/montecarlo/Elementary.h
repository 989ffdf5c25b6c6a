// SPDX-License-Identifier: BSD-3-Clause
// Logarithms, powers and the cosine, with the same bits on every system.
//
// The functions of the C libraries agree but for the last bit or two. A result file keeps numbers to the last
// bit, so these are made of the four operations and the square root alone, which every processor rounds in
// the same way. They are right within four units in the last place, unless told otherwise.
#pragma once

/** \param number a number below or at 0, an infinity and no number have the results of std::log */
double naturalLogarithm(double number);

/** Exact for powers of ten. \param number as for naturalLogarithm */
double commonLogarithm(double number);

/** \param exponent within -700 and 700 */
double exponential(double exponent);

/**
 * Exact for whole exponents between -22 and 22, as far as a double is. Beyond these each further ten may cost
 * half a unit in the last place. \param exponent within -300 and 300
 */
double powerOfTen(double exponent);

/** The cosine of an angle. \param turns the angle, 1 for the whole circle; within -1 and 1 */
double cosineOfTurns(double turns);
