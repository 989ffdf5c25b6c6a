// SPDX-License-Identifier: BSD-3-Clause
// What the fuzz targets share: invariants that end the program, what a call failed with, and pieces of an
// input.
#pragma once

#include <ZyException.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/** The entry of a target: called once for each input. Defined by each of them, called by the fuzzer or by the
 * replay. */
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size);

namespace Fuzz
{
/** Ends the program when \a holds is false, which is a finding. */
inline void require(bool holds, char const * invariant)
{
    if (!holds) {
        std::fprintf(stderr, "Does not hold: %s\n", invariant);
        std::abort();
    }
}

/**
 * Runs \a function and tells what it failed with: "ZyException: its message", or the empty text. A message is
 * told up to its first NUL.
 *
 * Only an exception of the tree is a failure; everything else escapes and is a finding.
 */
template <class Function>
std::string failureOf(Function && function)
{
    try {
        function();
        return std::string();
    } catch (ZyException const & failure) {
        require(std::string_view(failure.message().c_str()) == failure.what(),
                "the two messages of an exception are one");
        return std::string(failure.name()) + ": " + failure.what();
    }
}

/** Whether \a text begins with \a start. */
inline bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

/** An input, taken piece by piece from its front. What is not there is zero or empty. */
class Input
{
public:
    Input(std::uint8_t const * data, std::size_t size)
        : m_rest(size == 0 ? std::string_view()
                           : std::string_view(reinterpret_cast<char const *>(data), size))
    {}

    bool isEmpty() const { return m_rest.empty(); }
    unsigned char byte()
    {
        std::string_view const one = text(1);
        return one.empty() ? static_cast<unsigned char>(0) : static_cast<unsigned char>(one.front());
    }
    /** At most \a size bytes. */
    std::string_view text(std::size_t size)
    {
        std::string_view const piece = m_rest.substr(0, size);
        m_rest.remove_prefix(piece.size());
        return piece;
    }
    /** Up to the next line feed, which goes too. */
    std::string_view line()
    {
        std::string_view const piece = m_rest.substr(0, m_rest.find('\n'));
        m_rest.remove_prefix(std::min(m_rest.size(), piece.size() + 1));
        return piece;
    }
    std::string_view rest() { return text(m_rest.size()); }

private:
    std::string_view m_rest;
};
} // namespace Fuzz
