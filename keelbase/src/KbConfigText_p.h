// SPDX-License-Identifier: BSD-3-Clause
// The configuration as an ordered list, and its text in a file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/**
 * Sections in order, each with its keys in order. The text form:
 *
 *     [section]
 *     key=value
 *
 * A backslash stands as "\\", a line feed as "\n", a carriage return as "\r"; in names also "=" as "\e", "["
 * as "\o" and "]" as "\c". Nothing else has a meaning: blanks count, there are no comments and no quotes.
 *
 * What does not have this form stays where it stands when the text is written again: lines without "=", with
 * a NUL, in front of the first section, and all below a line that begins with "[" and is no section. Lines
 * may end as other systems end them, and the last one not at all; a byte order mark is
 * dropped. Of a section or key that comes twice the
 * later values count, in the place of the first. An unknown escape stands for its two characters.
 */
class KbConfigText
{
public:
    struct Line
    {
        bool isSetting;
        std::string key;   ///< of a setting
        std::string value; ///< of a setting; of anything else the line itself
    };
    struct Section
    {
        bool isNamed; ///< false: lines that belong to no section
        std::string name;
        std::vector<Line> lines;
        std::unordered_map<std::string, std::size_t> settings; ///< the lines of the keys

        void set(std::string const & key, std::string const & value);
    };

    KbConfigText() = default;
    explicit KbConfigText(std::string_view text);

    std::string text() const;

    /** In order, with what belongs to none. */
    std::vector<Section> const & sections() const { return m_sections; }
    /** Null when there is none. */
    Section const * section(std::string const & name) const;
    /** Null when there is none. */
    std::string const * value(std::string const & section, std::string const & key) const;
    /** Makes the section if it is missing. */
    Section & addSection(std::string const & name);
    void set(std::string const & section, std::string const & key, std::string const & value);

private:
    void read(std::string_view line, bool isFirst);

    std::vector<Section> m_sections;
    std::unordered_map<std::string, std::size_t> m_named; ///< the places of the named ones
    std::size_t m_current = 0;                            ///< the section that is read
};
