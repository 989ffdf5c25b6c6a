// SPDX-License-Identifier: BSD-3-Clause
// The state of the plain table, for its sources.
#pragma once

#include <ZyVariantTable.h>

class ZyVariantTable::Private : public ZyPrivateObject
{
public:
    ZyMatrix<ZyVariant> cells;
};
