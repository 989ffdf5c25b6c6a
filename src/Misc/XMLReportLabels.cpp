// SPDX-License-Identifier: BSD-3-Clause
// Short texts for runs, made from their names: as short as possible, and as long as needed to tell them
// apart.
#include "Misc/XMLReport_p.h"

#include <keelbase/KbText.h>

#include <map>

namespace
{
/** The level at which a label is the whole name. */
constexpr int lastLevel = 5;

/** A name in the form "key:value/key:value/...". Pieces of another form are ignored. */
class KeyList
{
public:
    explicit KeyList(YString const & name)
    {
        YVector<YString> pieces;
        sp_ScanLine(name, '/', pieces);
        for (YString const & piece : pieces) {
            YVector<YString> parts;
            if (sp_ScanLine(piece, ':', parts) == 2) {
                m_pairs.add({parts[0], parts[1]});
            }
        }
    }

    /** The value of the first pair with a key, compared without regard to case; null when there is none. */
    YString const * find(char const * key) const
    {
        for (Pair const & pair : m_pairs) {
            if (pair.key.compareNoCase(key) == 0) {
                return &pair.value;
            }
        }
        return nullptr;
    }

private:
    struct Pair
    {
        YString key;
        YString value;
    };

    YVector<Pair> m_pairs;
};

/** A label under construction. */
class Label
{
public:
    Label(KeyList const & keys, int level) : m_keys(keys), m_level(level) {}

    /** Appends the value of a key between two texts, from a level on, if there is one. */
    Label & add(int level, char const * before, char const * key, char const * after)
    {
        YString const * const value = m_level >= level ? m_keys.find(key) : nullptr;
        if (value) {
            m_text += before;
            m_text += *value;
            m_text += after;
        }
        return *this;
    }

    YString const & text() const { return m_text; }

private:
    KeyList const & m_keys;
    int m_level;
    YString m_text;
};

YString labelOf(YString const & name, int level)
{
    if (level >= lastLevel) {
        return name;
    }
    KeyList const keys(name);
    if (keys.find("Lot")) {
        return Label(keys, level)
            .add(1, "Lot: ", "Lot", "")
            .add(2, ".", "DevParam", "")
            .add(2, " (TOL=", "Tol", ")")
            .text();
    }
    if (keys.find("Refdes")) {
        return Label(keys, level)
            .add(1, "Ref: ", "Refdes", "")
            .add(2, ".", "DevParam", "")
            .add(3, " (", "PDF", ")")
            .add(4, " (term ", "Term", ")")
            .text();
    }
    if (keys.find("Param")) {
        return Label(keys, level).add(1, "Var: ", "Param", "").add(3, " (", "PDF", ")").text();
    }
    return name;
}

/**
 * The runs without a description by their labels; null stands for several. No hash table: its large block of
 * buckets would make the C library tidy up the pieces of the document that has just gone, which takes longer
 * than all else.
 */
std::map<YString, XMLReportInfo *> runsByLabel(YHashTable<XMLReportInfo> & table, int level)
{
    std::map<YString, XMLReportInfo *> result;
    table.forEach([&](int, XMLReportInfo & run) {
        if (run.description.isEmpty()) {
            auto const [place, isNew] = result.emplace(labelOf(run.name, level), &run);
            if (!isNew) {
                place->second = nullptr;
            }
        }
    });
    return result;
}
} // namespace

void XMLReport::makeLabels(YHashTable<XMLReportInfo> & table)
{
    for (int level = 1; level <= lastLevel; ++level) {
        for (auto const & [label, run] : runsByLabel(table, level)) {
            if (run) {
                run->description = label;
            }
        }
    }
}
