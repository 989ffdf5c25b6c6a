// SPDX-License-Identifier: BSD-3-Clause
// Comparing without regard to case, finding, replacing and splitting: against QString, Boost, absl and libc.
#include "Measure.h"
#include "peers/Workload.h"

#include <ZyDeque.h>
#include <ZyString.h>
#include <ZyStringView.h>

#include <QString>
#include <QVector>

#ifdef ZYBENCH_ABSL
#include <absl/strings/match.h>
#include <absl/strings/str_replace.h>
#include <absl/strings/str_split.h>
#endif
#ifdef ZYBENCH_BOOST
#include <boost/algorithm/string.hpp>
#endif

#include <algorithm>
#include <cctype>
#include <cstring>
#include <locale>
#include <string>
#include <vector>

#include <strings.h>

namespace bench
{

namespace
{

constexpr unsigned pairCount = 1024;

std::string swapCase(std::string text)
{
    for (char & c : text) {
        c = char(c ^ 32);
    }
    return text;
}

/** Texts that have to be read to their end: equal but for case, or different in the last letter only. */
struct Pairs
{
    std::vector<std::string> a;
    std::vector<std::string> b;
    std::vector<ZyString> zyA;
    std::vector<ZyString> zyB;
    QVector<QString> qtA;
    QVector<QString> qtB;

    Pairs(std::size_t length, bool sameEnds)
    {
        Random random(10 + length);
        for (unsigned i = 0; i < pairCount; ++i) {
            std::string first = random.name(length);
            std::string second = swapCase(first);
            if (!sameEnds) {
                second.back() = random.name(1).front();
            }
            zyA.emplace_back(first);
            zyB.emplace_back(second);
            qtA.append(QString::fromStdString(first));
            qtB.append(QString::fromStdString(second));
            a.push_back(std::move(first));
            b.push_back(std::move(second));
        }
    }
};

/** Registers a comparison of all pairs; \a compare gets the pairs and an index. */
template <class Compare>
void addPairs(std::string const & name, Pairs const & pairs, Compare compare)
{
    addLoop(name, pairCount, [&pairs, compare] {
        unsigned hits = 0;
        for (unsigned i = 0; i < pairCount; ++i) {
            hits += compare(pairs, i) ? 1u : 0u;
        }
        return hits;
    });
}

void registerEqual(std::size_t length)
{
    auto const & pairs = *new Pairs(length, true); // lives as long as the program, as the registry does
    std::string const family = "equal/" + std::to_string(length) + "/";
    addPairs(family + "ours", pairs, [](Pairs const & p, unsigned i) { return p.zyA[i] == p.zyB[i]; });
    addPairs(family + "QString", pairs, [](Pairs const & p, unsigned i) {
        return QString::compare(p.qtA[int(i)], p.qtB[int(i)], Qt::CaseInsensitive) == 0;
    });
    addPairs(family + "strcasecmp", pairs,
             [](Pairs const & p, unsigned i) { return strcasecmp(p.a[i].c_str(), p.b[i].c_str()) == 0; });
#ifdef ZYBENCH_BOOST
    addPairs(family + "boost", pairs, [](Pairs const & p, unsigned i) {
        static std::locale const locale;
        return boost::algorithm::iequals(p.a[i], p.b[i], locale);
    });
#endif
#ifdef ZYBENCH_ABSL
    addPairs(family + "absl", pairs,
             [](Pairs const & p, unsigned i) { return absl::EqualsIgnoreCase(p.a[i], p.b[i]); });
#endif
}

void registerLess(std::size_t length)
{
    auto const & pairs = *new Pairs(length, false);
    std::string const family = "less/" + std::to_string(length) + "/";
    addPairs(family + "ours", pairs, [](Pairs const & p, unsigned i) { return p.zyA[i] < p.zyB[i]; });
    addPairs(family + "QString", pairs, [](Pairs const & p, unsigned i) {
        return QString::compare(p.qtA[int(i)], p.qtB[int(i)], Qt::CaseInsensitive) < 0;
    });
    addPairs(family + "strcasecmp", pairs,
             [](Pairs const & p, unsigned i) { return strcasecmp(p.a[i].c_str(), p.b[i].c_str()) < 0; });
#ifdef ZYBENCH_BOOST
    addPairs(family + "boost", pairs, [](Pairs const & p, unsigned i) {
        static std::locale const locale;
        return boost::algorithm::ilexicographical_compare(p.a[i], p.b[i], locale);
    });
#endif
}

/** An 8-letter name, in the other case, at the end of a long text of letters. */
void registerFind(std::size_t length)
{
    std::string const needle = "ZyxWvuTs";
    std::string hay = Random(11).name(length);
    hay.replace(hay.size() - needle.size(), needle.size(), swapCase(needle));
    std::string const family = "find/" + std::to_string(length) + "/";
    addLoop(family + "ours", 1,
            [hay = ZyString(hay), needle = ZyString(needle)] { return hay.contains(needle); });
    addLoop(family + "QString", 1,
            [hay = QString::fromStdString(hay), needle = QString::fromStdString(needle)] {
                return hay.indexOf(needle, 0, Qt::CaseInsensitive);
            });
    addLoop(family + "strcasestr", 1,
            [hay, needle] { return strcasestr(hay.c_str(), needle.c_str()) != nullptr; });
    addLoop(family + "std::search", 1, [hay, needle] {
        auto same = [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); };
        return std::search(hay.begin(), hay.end(), needle.begin(), needle.end(), same) != hay.end();
    });
#ifdef ZYBENCH_BOOST
    addLoop(family + "boost", 1, [hay, needle] {
        static std::locale const locale;
        return !boost::algorithm::ifind_first(hay, needle, locale).empty();
    });
#endif
}

/** Texts of letters in which "%node%" stands every 50 characters, in both cases in turn. */
std::string textWithNodes(unsigned count)
{
    Random random(12);
    std::string text;
    for (unsigned i = 0; i < count; ++i) {
        text += random.name(44) + (i % 2 != 0 ? "%node%" : "%NODE%");
    }
    return text;
}

/** The copy that every contender but absl needs is part of the job: the replaced text is a new one. */
void registerReplace(unsigned count)
{
    std::string const text = textWithNodes(count);
    std::string const family = "replace/" + std::to_string(count) + "/";
    addLoop(family + "ours", 1,
            [text = ZyString(text), from = ZyString("%node%"), to = ZyString("identifier")] {
                return text.replaced(from, to, ZyComparableString::CaseInsensitive).size();
            });
    addLoop(family + "QString", 1, [text = QString::fromStdString(text)] {
        QString copy = text;
        copy.replace(QLatin1String("%node%"), QLatin1String("identifier"), Qt::CaseInsensitive);
        return copy.size();
    });
#ifdef ZYBENCH_BOOST
    addLoop(family + "boost", 1, [text] {
        static std::locale const locale;
        std::string copy = text;
        boost::algorithm::ireplace_all(copy, "%node%", "identifier", locale);
        return copy.size();
    });
#endif
}

void registerReplaceSameCase()
{
    std::string const text = textWithNodes(2000);
    addLoop("replace-case/2000/ours", 1,
            [text = ZyString(text), from = ZyString("%node%"), to = ZyString("identifier")] {
                return text.replaced(from, to, ZyComparableString::CaseSensitive).size();
            });
    addLoop("replace-case/2000/QString", 1, [text = QString::fromStdString(text)] {
        QString copy = text;
        copy.replace(QLatin1String("%node%"), QLatin1String("identifier"));
        return copy.size();
    });
#ifdef ZYBENCH_ABSL
    addLoop("replace-case/2000/absl", 1, [text] {
        return absl::StrReplaceAll(text, {{"%node%", "identifier"}}).size();
    });
#endif
}

/** Lines of ten fields. */
std::vector<std::string> csvLines()
{
    Random random(13);
    std::vector<std::string> lines(256);
    for (std::string & line : lines) {
        appendCsvLine(random, line);
        line.pop_back();
    }
    return lines;
}

template <class Text, class Split>
void addSplit(std::string const & name, std::vector<Text> lines, Split split)
{
    unsigned const fields = unsigned(lines.size()) * 10;
    addLoop(name, fields, [lines = std::move(lines), split] {
        std::size_t total = 0;
        for (Text const & line : lines) {
            total += split(line);
        }
        return total;
    });
}

template <class Fields>
std::size_t sumOfSizes(Fields const & fields)
{
    std::size_t total = 0;
    for (auto const & field : fields) {
        total += std::size_t(field.size());
    }
    return total;
}

void registerTokenize()
{
    std::vector<std::string> const lines = csvLines();
    std::vector<ZyString> zyLines(lines.begin(), lines.end());
    std::vector<QString> qtLines;
    for (std::string const & line : lines) {
        qtLines.push_back(QString::fromStdString(line));
    }
    addSplit("tokenize/lines/ours", zyLines, [comma = ZyString(",")](ZyString const & line) {
        return sumOfSizes(line.tokenize(comma).std_deque());
    });
    addSplit("tokenize/lines/QString", qtLines,
             [](QString const & line) { return sumOfSizes(line.splitRef(QLatin1Char(','))); });
#ifdef ZYBENCH_ABSL
    addSplit("tokenize/lines/absl", lines, [](std::string const & line) {
        std::vector<absl::string_view> const fields = absl::StrSplit(line, ',');
        return sumOfSizes(fields);
    });
#endif
#ifdef ZYBENCH_BOOST
    addSplit("tokenize/lines/boost", lines, [](std::string const & line) {
        std::vector<std::string> fields;
        boost::algorithm::split(fields, line, [](char c) { return c == ','; });
        return sumOfSizes(fields);
    });
#endif
}

/** A long text that a delimiter of three letters cuts into pieces, without regard to case. */
void registerTokenizeLong(unsigned count)
{
    std::string text;
    Random random(14);
    for (unsigned i = 0; i < count; ++i) {
        text += random.name(44) + (i % 2 != 0 ? "-x-" : "-X-");
    }
    std::string const family = "tokenize/" + std::to_string(count) + "/";
    addLoop(family + "ours", 1,
            [text = ZyString(text), cut = ZyString("-x-")] { return text.tokenize(cut).size(); });
    addLoop(family + "QString", 1, [text = QString::fromStdString(text)] {
        return text.splitRef(QLatin1String("-x-"), Qt::KeepEmptyParts, Qt::CaseInsensitive).size();
    });
#ifdef ZYBENCH_BOOST
    addLoop(family + "boost", 1, [text] {
        static std::locale const locale;
        std::vector<boost::iterator_range<std::string::const_iterator>> pieces;
        boost::algorithm::iter_split(pieces, text,
                                     boost::algorithm::first_finder("-x-", boost::is_iequal(locale)));
        return pieces.size();
    });
#endif
}

} // namespace

void registerBenchmarks()
{
    for (std::size_t length : {8u, 32u, 256u}) {
        registerEqual(length);
    }
    for (std::size_t length : {8u, 32u, 256u}) {
        registerLess(length);
    }
    for (std::size_t length : {10000u, 100000u}) {
        registerFind(length);
    }
    for (unsigned count : {2000u, 20000u}) {
        registerReplace(count);
    }
    registerReplaceSameCase();
    registerTokenize();
    for (unsigned count : {2000u, 20000u}) {
        registerTokenizeLong(count);
    }
}

} // namespace bench
