// SPDX-License-Identifier: BSD-3-Clause
// The formatter of the suite's output: formats may be anything and never reach the C library.
#pragma once

#include <keelbase/KbPrintf.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/** Text that grows. It takes nothing from the heap while it is short: the report of a fault must not wait for
 * a heap that the fault has left locked. */
class KbGrowingText
{
public:
    void add(char const * text, std::size_t size);
    void add(char character, std::size_t count);
    /** Terminated. */
    char const * c_str() const { return m_long.empty() ? m_short.data() : m_long.c_str(); }
    std::size_t size() const { return m_long.empty() ? m_size : m_long.size(); }

private:
    bool makeRoom(std::size_t size);

    std::array<char, 2048> m_short = {};
    std::size_t m_size = 0; ///< in m_short
    std::string m_long;     ///< all of the text, once it is too long
};

/** Adds to \a text what a format and its arguments say; see zy_printf(). */
void kbFormat(KbGrowingText & text, char const * format, std::array<PrintfArg, 4> const & arguments);
