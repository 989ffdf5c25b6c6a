// SPDX-License-Identifier: BSD-3-Clause
// A look at a workbook that has been written.
#pragma once

#include <ZyFilePath.h>

#include <functional>

/**
 * Reads a workbook again to its last byte: a full disk can pass unseen while a package is written.
 * \param sheets how many there should be
 * \param betweenReads called once in a while; what it throws goes through
 * \return whether all of it is there
 */
bool isWholeWorkbook(ZyFilePath const & path, unsigned int sheets,
                     std::function<void()> const & betweenReads);
