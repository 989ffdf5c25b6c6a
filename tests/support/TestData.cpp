// SPDX-License-Identifier: BSD-3-Clause
// The only source that is compiled with the place of the checkout: the objects of all others are the same
// wherever it lies, so that compiler caches serve every checkout.
#include "TestData.h"

std::string TestData::path(std::string const & file)
{
    return ZYTEST_DATA_DIR "/" + file;
}
