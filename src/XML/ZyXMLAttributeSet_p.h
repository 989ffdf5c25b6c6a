// SPDX-License-Identifier: BSD-3-Clause
// The state of a set of attributes, and the attributes of a start tag before anyone has asked for such a set.
#pragma once

#include <ZyXMLAttributeSet.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class QXmlStreamAttributes;

class ZyXMLAttributeSet::Private : public ZyPrivateObject
{
public:
    std::vector<ZyXMLAttribute> attributes; ///< in the order of first insertion
};

/**
 * What Qt's reader has found in a start tag, as one text: to keep it costs one block of memory, where a set
 * costs three for each attribute.
 */
class ZyXMLAttributeReading
{
public:
    /** Local names and values; the set that they make has one attribute a name only. */
    explicit ZyXMLAttributeReading(QXmlStreamAttributes const & attributes);

    /** Adds what addAttribute would add for each attribute; \a set is empty. The time does not grow with the
     * square. */
    void fill(ZyXMLAttributeSet & set) const;
    /** The value that the set has under a name; null data when there is none. */
    std::string_view value(std::string_view name) const;

private:
    std::size_t m_count;
    std::string
        m_text; ///< name and value of each, every text behind its size: in memory, texts may hold a NUL
};
