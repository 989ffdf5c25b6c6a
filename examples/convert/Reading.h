// SPDX-License-Identifier: BSD-3-Clause
// From the file to a table, by the reader that fits the text.
#pragma once

#include "TextCheck.h"

#include <ZyVariantTable.h>

#include <QString>

/**
 * Reads a file that checkText has passed.
 *
 * Cells are integers, doubles and texts; what a short row lacks is the empty text. Numbers are finite: what
 * only looks like one to a C library ("nan", "inf", "1e999") stays as it is written.
 */
ZyVariantTable readTable(QString const & file, TextFacts const & facts, bool typed);
