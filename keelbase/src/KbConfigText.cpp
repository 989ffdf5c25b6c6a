// SPDX-License-Identifier: BSD-3-Clause
// The configuration as an ordered list, and its text in a file.
#include "KbConfigText_p.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace
{

struct Escape
{
    char character;
    char letter;
};

// The first three are enough for a value.
constexpr Escape escapes[] = {{'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'}, {'=', 'e'}, {'[', 'o'}, {']', 'c'}};
constexpr std::size_t valueEscapes = 3;
constexpr std::size_t nameEscapes = 6;

void appendEscaped(std::string & target, std::string_view text, std::size_t count)
{
    for (char const c : text) {
        auto const * const end = escapes + count;
        auto const * const escape =
            std::find_if(escapes, end, [c](Escape const & candidate) { return candidate.character == c; });
        if (escape == end) {
            target += c;
        } else {
            target += {'\\', escape->letter};
        }
    }
}

std::string unescaped(std::string_view text, std::size_t count)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto const * const end = escapes + count;
        auto const * escape = end;
        if (text[i] == '\\' && i + 1 < text.size()) {
            escape = std::find_if(escapes, end, [&](Escape const & e) { return e.letter == text[i + 1]; });
        }
        result += escape == end ? text[i] : escape->character;
        i += escape == end ? 0 : 1;
    }
    return result;
}

/** Where an item of a name stands; it is added where there is none. Index and items agree, whatever is
 * thrown. */
template <class Item>
std::size_t placeIn(std::unordered_map<std::string, std::size_t> & index, std::vector<Item> & items,
                    std::string const & name, typename std::vector<Item>::value_type item)
{
    auto const found = index.find(name);
    if (found != index.end()) {
        return found->second;
    }
    items.push_back(std::move(item));
    try {
        index.emplace(name, items.size() - 1);
    } catch (...) {
        items.pop_back();
        throw;
    }
    return items.size() - 1;
}

} // namespace

void KbConfigText::Section::set(std::string const & key, std::string const & value)
{
    std::size_t const place = placeIn(settings, lines, key, {true, key, value});
    lines[place].value = value;
}

KbConfigText::KbConfigText(std::string_view text)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    std::size_t start = 0;
    while (text.substr(start, mark.size()) == mark) {
        start += mark.size();
    }
    for (std::size_t from = start; from < text.size();) {
        std::size_t const end = std::min(text.find('\n', from), text.size());
        std::string_view line = text.substr(from, end - from);
        while (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        read(line, from == start);
        from = end + 1;
    }
}

void KbConfigText::read(std::string_view line, bool isFirst)
{
    bool const isHead = !line.empty() && line.front() == '[';
    bool const isWhole = line.find('\0') == std::string_view::npos;
    if (isHead && isWhole && line.size() > 1 && line.back() == ']') {
        std::string const name = unescaped(line.substr(1, line.size() - 2), nameEscapes);
        addSection(name);
        m_current = m_named.at(name);
        return;
    }
    if (isHead || isFirst) {
        m_current = m_sections.size();
        m_sections.push_back({false, {}, {}, {}});
    }
    std::size_t const sign = line.find('=');
    Section & section = m_sections[m_current];
    if (section.isNamed && isWhole && sign != std::string_view::npos) {
        section.set(unescaped(line.substr(0, sign), nameEscapes),
                    unescaped(line.substr(sign + 1), valueEscapes));
    } else {
        section.lines.push_back({false, {}, std::string(line)});
    }
}

std::string KbConfigText::text() const
{
    std::string result;
    for (Section const & section : m_sections) {
        if (section.isNamed) {
            result += '[';
            appendEscaped(result, section.name, nameEscapes);
            result += "]\n";
        }
        for (Line const & line : section.lines) {
            if (line.isSetting) {
                appendEscaped(result, line.key, nameEscapes);
                result += '=';
                appendEscaped(result, line.value, valueEscapes);
            } else {
                result += line.value;
            }
            result += '\n';
        }
    }
    return result;
}

KbConfigText::Section const * KbConfigText::section(std::string const & name) const
{
    auto const found = m_named.find(name);
    return found == m_named.end() ? nullptr : &m_sections[found->second];
}

std::string const * KbConfigText::value(std::string const & section, std::string const & key) const
{
    Section const * const place = this->section(section);
    if (!place) {
        return nullptr;
    }
    auto const found = place->settings.find(key);
    return found == place->settings.end() ? nullptr : &place->lines[found->second].value;
}

KbConfigText::Section & KbConfigText::addSection(std::string const & name)
{
    return m_sections[placeIn(m_named, m_sections, name, {true, name, {}, {}})];
}

void KbConfigText::set(std::string const & section, std::string const & key, std::string const & value)
{
    addSection(section).set(key, value);
}
