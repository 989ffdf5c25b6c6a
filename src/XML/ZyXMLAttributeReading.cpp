// SPDX-License-Identifier: BSD-3-Clause
// The attributes of a start tag, kept as one text until a set of them is wanted.
#include "Core/ZyCaseFold_p.h"
#include "Core/ZyString_p.h"
#include "Core/ZyUtf8_p.h"
#include "XML/ZyXMLAttributeSet_p.h"
#include "XML/ZyXMLAttribute_p.h"

#include <ZyString.h>

#include <QXmlStreamAttributes>

#include <array>
#include <cstddef>
#include <cstring>
#include <locale>
#include <unordered_map>

namespace
{
using Size = std::size_t;

/** Appends a text behind its size. */
void put(std::string & texts, QStringRef const & text)
{
    std::size_t const place = texts.size();
    texts.append(sizeof(Size), '\0');
    ZyUtf8::append(texts, text);
    Size const size = texts.size() - place - sizeof(Size);
    std::memcpy(&texts[place], &size, sizeof size);
}

/** Takes the next of several texts. */
std::string_view take(std::string_view & texts)
{
    Size size = 0;
    std::memcpy(&size, texts.data(), sizeof size);
    std::string_view const first = texts.substr(sizeof size, size);
    texts.remove_prefix(sizeof size + size);
    return first;
}

/** Equal as strings of ours are. */
bool areEqual(std::string_view a, std::string_view b)
{
    return a == b || (a.size() == b.size() && ZyCaseFold::withFold(std::locale(), [&](auto const & fold) {
                          return ZyCaseFold::equal(a, b, fold);
                      }));
}

/** A text that is the same for all that are equal. */
std::string folded(std::string_view text)
{
    std::string result(text);
    ZyCaseFold::withFold(std::locale(), [&](auto const & fold) {
        for (char & c : result) {
            c = static_cast<char>(fold(c));
        }
    });
    return result;
}

/** Finds the place of a name among those before it: by walking while they are few, then by an index. */
class Places
{
public:
    /** Where an equal name stands; the number of names when there is none, and then it is the next one. */
    std::size_t add(std::string_view name)
    {
        if (m_count < m_first.size()) {
            std::size_t place = 0;
            while (place < m_count && !areEqual(m_first[place], name)) {
                ++place;
            }
            if (place == m_count) {
                m_first[m_count++] = name;
            }
            return place;
        }
        for (std::size_t i = m_index.size(); i < m_count; ++i) {
            m_index.emplace(folded(m_first[i]), i);
        }
        return m_index.emplace(folded(name), m_index.size()).first->second;
    }

private:
    std::array<std::string_view, 16> m_first;
    std::size_t m_count = 0;                              ///< of the first names
    std::unordered_map<std::string, std::size_t> m_index; ///< of all names, once they are more
};
} // namespace

ZyXMLAttributeReading::ZyXMLAttributeReading(QXmlStreamAttributes const & attributes)
    : m_count(static_cast<std::size_t>(attributes.size()))
{
    std::size_t size = 0;
    for (QXmlStreamAttribute const & attribute : attributes) {
        size += static_cast<std::size_t>(attribute.name().size() + attribute.value().size());
        size += 2 * sizeof(Size);
    }
    m_text.reserve(size);
    for (QXmlStreamAttribute const & attribute : attributes) {
        for (QStringRef const & text : {attribute.name(), attribute.value()}) {
            put(m_text, text);
        }
    }
}

void ZyXMLAttributeReading::fill(ZyXMLAttributeSet & set) const
{
    std::vector<ZyXMLAttribute> & attributes = set.state().attributes;
    attributes.reserve(m_count);
    bool const isClassic = ZyCaseFold::isClassic(std::locale());
    Places places;
    for (std::string_view rest = m_text; !rest.empty();) {
        std::string_view const name = take(rest);
        std::string_view const value = take(rest);
        std::size_t const place = places.add(name);
        if (place == attributes.size()) {
            ZyXMLAttribute & attribute = attributes.emplace_back();
            if (isClassic && name.find_first_of(" \t\n\v\f\r") == std::string_view::npos) {
                ZyTextAccess::set(attribute.state().name, name);
            } else { // checks, too
                attribute.setName(ZyString(std::string(name)));
            }
        }
        ZyTextAccess::set(attributes[place].state().value, value);
    }
}

std::string_view ZyXMLAttributeReading::value(std::string_view name) const
{
    std::string_view result;
    for (std::string_view rest = m_text; !rest.empty();) {
        bool const found = areEqual(take(rest), name);
        std::string_view const value = take(rest);
        result = found ? value : result; // the last one counts
    }
    return result;
}
