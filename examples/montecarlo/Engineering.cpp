// SPDX-License-Identifier: BSD-3-Clause
// Prefixes and powers of a thousand.

#include "Engineering.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

constexpr std::array<char16_t, 10> prefixes = {u'f', u'p', u'n', u'u', u'm', u'\0', u'k', u'M', u'G', u'T'};
constexpr int noPrefix = 5; ///< place of the factor 1

/** The power of ten that a letter stands for; 0 for any other letter. */
int powerOf(QChar letter)
{
    auto const found = std::find(prefixes.begin(), prefixes.end(), letter.unicode());
    return found == prefixes.end() ? 0 : 3 * (int(found - prefixes.begin()) - noPrefix);
}

bool looksDecimal(QString const & text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar character) { return QStringLiteral("0123456789.eE+-").contains(character); });
}

} // namespace

// The prefix becomes an exponent before anything is computed: 4.7n is the same number as 4.7e-9.
std::optional<double> parseEngineering(QString const & text)
{
    QString number = text;
    if (int const power = text.isEmpty() ? 0 : powerOf(text.back())) {
        number.chop(1);
        number += u'e' + QString::number(power);
    }
    bool isNumber = false;
    double const value = QLocale::c().toDouble(number, &isNumber);
    return isNumber && looksDecimal(number) && std::isfinite(value) ? std::optional<double>(value)
                                                                    : std::nullopt;
}

QString engineering(double value, int digits, QString const & unit)
{
    if (!std::isfinite(value) || value == 0) {
        return QLocale::c().toString(value, 'g', digits) + (unit.isEmpty() ? QString() : u' ' + unit);
    }
    // Rounded first, so that 999.96 becomes 1 k and not 1000.
    double const rounded = QLocale::c().toString(value, 'e', digits - 1).toDouble();
    int const step = std::clamp(int(std::floor(std::log10(std::abs(rounded)) / 3 + 1e-12)), -noPrefix,
                                int(prefixes.size()) - 1 - noPrefix);
    QString const number =
        QLocale::c().toString(rounded / std::pow(10.0, 3 * step), 'g', std::max(digits, 3));
    int const at = step + noPrefix;
    QChar const letter(prefixes.at(static_cast<std::size_t>(at)));
    QString const prefix = letter.isNull() ? QString() : QString(letter == u'u' ? QChar(0x00B5) : letter);
    return number + (prefix.isEmpty() && unit.isEmpty() ? QString() : u' ' + prefix + unit);
}

QString exactNumber(double value)
{
    return QLocale::c().toString(value, 'g', QLocale::FloatingPointShortest);
}
