// SPDX-License-Identifier: BSD-3-Clause
// Numbers as engineers write them: 4.7k, 10n, 1.59 kHz.
#pragma once

#include <QString>

#include <optional>

/**
 * Reads a decimal number with one of the prefixes f p n u m k M G T behind it, or none; the letters' case
 * matters. \return nothing for any other text, and for numbers too large to be held
 */
std::optional<double> parseEngineering(QString const & text);

/** \a value with \a digits significant digits, a prefix and \a unit: "1.591 kHz"; without a unit "1.591 k".
 */
QString engineering(double value, int digits, QString const & unit = QString());

/** The shortest text that reads back as the same number. */
QString exactNumber(double value);
