// SPDX-License-Identifier: BSD-3-Clause
// The order of cells of mixed kinds, by hand: kind first, then numbers by value, texts without regard to
// case; two doubles within ten epsilon of their sum are equal.
#pragma once

#include "CellText.h"

#include <cmath>
#include <limits>

#include <strings.h>

namespace bench
{

inline int compareCells(HeapCell const & a, HeapCell const & b)
{
    if (a.type() != b.type()) {
        return int(a.type()) - int(b.type());
    }
    if (a.type() == HeapCell::Integer) {
        return a.integer() == b.integer() ? 0 : a.integer() < b.integer() ? -1 : 1;
    }
    if (a.type() == HeapCell::Text) {
        return strcasecmp(a.text().c_str(), b.text().c_str());
    }
    double const difference = std::fabs(a.real() - b.real());
    double const tolerance = std::fabs(a.real() + b.real()) * std::numeric_limits<double>::epsilon() * 10;
    if (difference < tolerance || difference < std::numeric_limits<double>::min()) {
        return 0;
    }
    return a.real() < b.real() ? -1 : 1;
}

} // namespace bench
