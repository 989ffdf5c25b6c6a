// SPDX-License-Identifier: BSD-3-Clause
// Numbers to text and back: against libc and the character conversions of the standard library.
#include "Measure.h"
#include "peers/Workload.h"

#include <ZyString.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace bench
{

namespace
{

constexpr unsigned count = 4096;

struct Numbers
{
    std::vector<double> reals; // of any exponent from -12 to 11, all 53 bits used
    std::vector<int> integers;
    std::vector<std::string> realTexts;  // 17 digits
    std::vector<std::string> shortTexts; // six digits
    std::vector<std::string> integerTexts;
    std::vector<ZyString> zyRealTexts;
    std::vector<ZyString> zyShortTexts;
    std::vector<ZyString> zyIntegerTexts;

    Numbers()
    {
        Random random(15);
        for (unsigned i = 0; i < count; ++i) {
            double const real = (random.unit() * 2 - 1) * std::pow(10.0, double(random.below(24)) - 12);
            int const integer = int(random.below(2000000000)) - 1000000000;
            char buffer[64];
            std::snprintf(buffer, sizeof buffer, "%.17g", real);
            realTexts.emplace_back(buffer);
            std::snprintf(buffer, sizeof buffer, "%g", real);
            shortTexts.emplace_back(buffer);
            reals.push_back(real);
            integers.push_back(integer);
            integerTexts.push_back(std::to_string(integer));
            zyRealTexts.emplace_back(realTexts.back());
            zyShortTexts.emplace_back(shortTexts.back());
            zyIntegerTexts.emplace_back(integerTexts.back());
        }
    }
};

Numbers const & numbers()
{
    static Numbers const made;
    return made;
}

/** \a convert gets an index and returns a number made from the result. */
template <class Convert>
void add(std::string const & name, Convert convert)
{
    addLoop(name, count, [convert] {
        Numbers const & n = numbers();
        decltype(convert(n, 0u)) total = 0;
        for (unsigned i = 0; i < count; ++i) {
            total += convert(n, i);
        }
        return total;
    });
}

/** Every contender ends with a text that the caller owns: ours a ZyString, the peers a std::string. */
void registerToText()
{
    add("real-to-text/ours",
        [](Numbers const & n, unsigned i) { return ZyString::ToString(n.reals[i]).size(); });
    add("real-to-text/snprintf", [](Numbers const & n, unsigned i) {
        char buffer[64];
        int const length = std::snprintf(buffer, sizeof buffer, "%g", n.reals[i]);
        return std::string(buffer, std::size_t(length)).size();
    });
    add("real-to-text/to_chars", [](Numbers const & n, unsigned i) {
        char buffer[64];
        auto const end =
            std::to_chars(buffer, buffer + sizeof buffer, n.reals[i], std::chars_format::general, 6).ptr;
        return std::string(buffer, end).size();
    });
    add("integer-to-text/ours", [](Numbers const & n, unsigned i) { return ZyString(n.integers[i]).size(); });
    add("integer-to-text/snprintf", [](Numbers const & n, unsigned i) {
        char buffer[16];
        int const length = std::snprintf(buffer, sizeof buffer, "%d", n.integers[i]);
        return std::string(buffer, std::size_t(length)).size();
    });
    add("integer-to-text/to_chars", [](Numbers const & n, unsigned i) {
        char buffer[16];
        auto const end = std::to_chars(buffer, buffer + sizeof buffer, n.integers[i]).ptr;
        return std::string(buffer, end).size();
    });
}

double fromChars(std::string const & text)
{
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/** 17 digits, as exact output has them, and six, as tables have them. */
void registerToReal(char const * kind, std::vector<std::string> Numbers::*texts,
                    std::vector<ZyString> Numbers::*ours)
{
    std::string const family = std::string("to-double-") + kind + "/";
    add(family + "ours", [ours](Numbers const & n, unsigned i) { return (n.*ours)[i].toDouble(); });
    add(family + "strtod",
        [texts](Numbers const & n, unsigned i) { return std::strtod((n.*texts)[i].c_str(), nullptr); });
    add(family + "from_chars", [texts](Numbers const & n, unsigned i) { return fromChars((n.*texts)[i]); });
}

void registerTests()
{
    add("is-double/ours", [](Numbers const & n, unsigned i) { return n.zyRealTexts[i].isDouble() ? 1 : 0; });
    add("is-double/strtod", [](Numbers const & n, unsigned i) {
        char * end = nullptr;
        std::strtod(n.realTexts[i].c_str(), &end);
        return end != n.realTexts[i].c_str() && *end == 0 ? 1 : 0;
    });
    add("is-double/from_chars", [](Numbers const & n, unsigned i) {
        std::string const & text = n.realTexts[i];
        double value = 0;
        return std::from_chars(text.data(), text.data() + text.size(), value).ptr == text.data() + text.size()
                   ? 1
                   : 0;
    });
    add("is-integer/ours",
        [](Numbers const & n, unsigned i) { return n.zyIntegerTexts[i].isInteger() ? 1 : 0; });
    add("is-integer/strtol", [](Numbers const & n, unsigned i) {
        char buffer[16];
        std::snprintf(buffer, sizeof buffer, "%d", int(std::strtol(n.integerTexts[i].c_str(), nullptr, 10)));
        return n.integerTexts[i] == buffer ? 1 : 0;
    });
    add("is-integer/from_chars", [](Numbers const & n, unsigned i) {
        std::string const & text = n.integerTexts[i];
        int value = 0;
        auto const result = std::from_chars(text.data(), text.data() + text.size(), value);
        bool const whole = result.ec == std::errc() && result.ptr == text.data() + text.size();
        return whole && (text[0] != '0' || text.size() == 1) ? 1 : 0;
    });
    add("to-integer/ours", [](Numbers const & n, unsigned i) { return long(n.zyIntegerTexts[i].toInt()); });
    add("to-integer/strtol",
        [](Numbers const & n, unsigned i) { return std::strtol(n.integerTexts[i].c_str(), nullptr, 10); });
    add("to-integer/from_chars", [](Numbers const & n, unsigned i) {
        std::string const & text = n.integerTexts[i];
        int value = 0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        return long(value);
    });
}

} // namespace

void registerBenchmarks()
{
    registerToText();
    registerToReal("17", &Numbers::realTexts, &Numbers::zyRealTexts);
    registerToReal("6", &Numbers::shortTexts, &Numbers::zyShortTexts);
    registerTests();
}

} // namespace bench
