// SPDX-License-Identifier: BSD-3-Clause
// What a figure does over all runs.
#pragma once

#include "Recording.h"

#include <ZyVector.h>

/** Of one figure: how it spreads. Runs in which it is not finite are left out. */
struct Spread
{
    ZyVector<double> values; ///< in the order of the cases
    double nominal = 0;      ///< of case 1
    double mean = 0;
    double deviation = 0; ///< standard deviation of the sample
    double lowest = 0;
    double highest = 0;
    int lowestCase = 0;
    int highestCase = 0;
    unsigned int missing = 0; ///< runs without this figure
};

/** The spread of merit function \a merit, counted from 0, over these runs. */
Spread spreadOf(Results const & results, std::size_t merit);

/** A good number of bins for that many values. */
unsigned int binsFor(unsigned int values);
