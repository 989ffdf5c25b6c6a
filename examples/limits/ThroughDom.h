// SPDX-License-Identifier: BSD-3-Clause
// The same document held in memory, changed where it stands, and saved.
#pragma once

#include "Limit.h"

#include <ZyFilePath.h>
#include <ZyXMLDomDocument.h>

/** The limits of a document. \throws ZyException a limit cannot be read */
Limits limitsOf(ZyXMLDomDocument & document);

/**
 * Gives a limit of the document another value, or appends it. Comments and whatever else the document holds
 * stay as they are, which a document that is written anew cannot offer.
 */
void setLimit(ZyXMLDomDocument & document, ZyString const & name, int value);
