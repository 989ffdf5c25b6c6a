// SPDX-License-Identifier: BSD-3-Clause
// URLs as text, with their parts on demand.
#pragma once

#include <ZyExport.h>
#include <ZyString.h>

/**
 * A URL held as the text that was given, which need not be one. Every accessor takes the text apart anew and
 * tolerantly: text that is no URL gives what can be made of it, and nothing throws.
 *
 * \code
 * ZyUrl const page("http://Example.org/data/a%20b.csv?x=1#top");
 * page.host();       // example.org
 * page.filename();   // a b.csv
 * \endcode
 *
 * The parts come decoded: "%20" is a blank.
 *
 * \deliberate{pretty-fragment} The fragment alone keeps encoded what would be ambiguous.
 *
 * \threads a value: safe where nobody writes
 */
class ZYCORE_EXPORT ZyUrl
{
public:
    /** The empty text, of which all parts are empty. */
    ZyUrl();
    ZyUrl(ZyUrl const & other);
    /** \a other becomes the empty URL. */
    ZyUrl(ZyUrl && other);
    /** Any text; nothing is checked. */
    ZyUrl(ZyString const & text);
    ZyUrl(ZyString && text);
    virtual ~ZyUrl();

    ZyUrl & operator=(ZyUrl const & other);
    ZyUrl & operator=(ZyUrl && other);

    /** The text as it was given. */
    ZyString const & toString() const;

    /** What stands before the first colon, in lower case, without the colon: "http". */
    ZyString scheme() const;
    /** The host, in lower case, without user and port. */
    ZyString host() const;
    /** The path, from its first slash on, without query and fragment. */
    ZyString path() const;
    /** What stands behind the last slash of the path; empty for a path that ends with one. */
    ZyString filename() const;
    /** What stands behind the number sign. */
    ZyString fragment() const;

private:
    ZyString m_text;
};
