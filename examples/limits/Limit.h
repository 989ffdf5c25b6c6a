// SPDX-License-Identifier: BSD-3-Clause
// A value of this program's own, and how it becomes XML and back.
#pragma once

#include <ZyString.h>
#include <ZyXMLObject.h>

#include <vector>

/** A named bound of a simulation. */
struct Limit
{
    ZyString name;
    int value = 0; ///< in millivolts
};

using Limits = std::vector<Limit>;

/** Gives \a name this value; a limit that is not there yet comes last. Names compare without regard to case.
 */
void setLimit(Limits & limits, ZyString const & name, int value);

/**
 * The XML form of a Limit: what the library's own types have too.
 *
 * The name of the element around it is nobody's business here: it belongs to the document.
 */
template <>
struct ZyXMLObject<Limit, void>
{
    /** Puts the children "Name" and "Value" into an element that the caller has opened. */
    static void Write(ZyXMLElementWriter & element, Limit const & limit);
    /** How such an element is read; made once, shared by all who read limits. */
    static ZySharedPtr<ZyXMLLambdaDefinition<Limit>> LoadRule();
};
