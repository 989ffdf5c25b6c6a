// SPDX-License-Identifier: BSD-3-Clause
// The door to the configuration of the suite.
#pragma once

#include <ZyExport.h>

class ZyProperties;
class ZyString;
template <class T>
class ZyDeque;

/**
 * The door to the configuration of the suite: named sections of keys with text values, which outlast the
 * process. Where they lie is the business of the support library and of the host that chooses there.
 *
 * \code
 * ZyApplicationProperties::Write("Window", "Width", "800");
 * ZyApplicationProperties::ReadAll("Window").value("width").asString();   // 800
 * \endcode
 *
 * Names are those of the configuration, which minds case. Texts end at their first NUL.
 *
 * \threads as the configuration; nothing is kept or locked here
 */
class ZYCORE_EXPORT ZyApplicationProperties
{
public:
    /**
     * The value of a key.
     *
     * \deliberate{missing-section-names-key} Of a section that does not exist the key is reported, as if it alone were
     * missing.
     *
     * \throws ZyNotFoundException "Item not found: Application property: [section, key]"
     */
    static ZyString Read(ZyString const & section, ZyString const & key);
    /**
     * Stores the value of a key; the section is made if it is missing.
     *
     * \deliberate{write-tells-nothing} A configuration that cannot be written is no failure: a host goes on with what it
     * has, and reads back where it must know.
     */
    static void Write(ZyString const & section, ZyString const & key, ZyString const & value);
    /**
     * The keys of a section, in the order of the configuration.
     * \throws ZyNotFoundException "Item not found: Application properties not found in section: section"
     */
    static ZyDeque<ZyString> PropertyNames(ZyString const & section);
    /**
     * All keys of a section with their values, each as a string, whatever it looks like.
     *
     * \deliberate{keys-fall-together} Keys that differ in case alone become one property, with the place of the first
     * and the name and value of the last: a set knows one name in any case.
     *
     * \throws ZyNotFoundException as PropertyNames(); as Read() when a key goes meanwhile
     */
    static ZyProperties ReadAll(ZyString const & section);
};
