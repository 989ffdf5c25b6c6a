// SPDX-License-Identifier: BSD-3-Clause
// A document read by rules and written as a stream.
#pragma once

#include "Limit.h"

#include <ZyFilePath.h>

#include <QString>

/** Where the limits stand in a document. */
constexpr char const * limitsElement = "Limits";
constexpr char const * limitElement = "Limit";

/** Reads the limits of a file of any size; memory is needed for the limits alone. \throws ZyException it cannot be read */
Limits readByRules(ZyFilePath const & file);

/** The same after the file has been checked against a schema. \throws ZyException it does not pass, too */
Limits readByRules(ZyFilePath const & file, ZyFilePath const & schema);

/** Writes a new document of these limits. \throws ZyException it cannot be written; an older file is as it was */
void writeAsStream(QString const & file, Limits const & limits);
