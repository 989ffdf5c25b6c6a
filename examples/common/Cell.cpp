// SPDX-License-Identifier: BSD-3-Clause
// Comparing and printing single values.

#include "Cell.h"

#include <array>
#include <charconv>
#include <string>

namespace
{

bool isNumber(CellKind kind)
{
    return kind == CellKind::Integer || kind == CellKind::Decimal;
}

double number(ZyVariant const & value)
{
    return value.type() == ZyVariant::Integer ? double(value.asInteger()) : value.asDouble();
}

int rank(CellKind kind)
{
    return isNumber(kind) ? 0 : kind == CellKind::Text ? 1 : 2;
}

} // namespace

CellKind kindOf(ZyVariant const & value)
{
    switch (value.type()) {
    case ZyVariant::Integer:
        return CellKind::Integer;
    case ZyVariant::Double:
        return CellKind::Decimal;
    case ZyVariant::String:
        return value.asString().isEmpty() ? CellKind::Empty : CellKind::Text;
    case ZyVariant::Null:
        return CellKind::Empty;
    default:
        return CellKind::Text;
    }
}

ZyString exactText(ZyVariant const & value)
{
    if (value.type() != ZyVariant::Double) {
        return kindOf(value) == CellKind::Empty ? ZyString() : value.toString();
    }
    std::array<char, 32> text{};
    auto const end = std::to_chars(text.data(), text.data() + text.size(), value.asDouble()).ptr;
    return ZyString(std::string(text.data(), end));
}

bool isRounded(ZyVariant const & value)
{
    return value.type() == ZyVariant::Double && value.toString().toDouble() != value.asDouble();
}

bool isIdentical(ZyVariant const & a, ZyVariant const & b)
{
    return a.type() == b.type() && exactText(a).equal(exactText(b), ZyComparableString::CaseSensitive);
}

bool isSame(ZyVariant const & a, ZyVariant const & b)
{
    CellKind const kind = kindOf(a);
    if (isNumber(kind)) {
        return isNumber(kindOf(b)) && number(a) == number(b);
    }
    if (kind != kindOf(b)) {
        return false;
    }
    return kind == CellKind::Empty || isIdentical(a, b);
}

bool isLess(ZyVariant const & a, ZyVariant const & b)
{
    int const rankA = rank(kindOf(a));
    int const rankB = rank(kindOf(b));
    if (rankA != rankB) {
        return rankA < rankB;
    }
    switch (rankA) {
    case 0:
        return number(a) < number(b);
    case 1:
        return exactText(a) < exactText(b);
    default:
        return false;
    }
}
