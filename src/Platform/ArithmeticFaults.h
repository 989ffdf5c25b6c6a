// SPDX-License-Identifier: BSD-3-Clause
// The arithmetic state of a thread while a guarded function runs.
#pragma once

#include <cfenv>

#ifdef _MSC_VER
#include <eh.h>
#endif

namespace ZyPlatform
{
/**
 * For its life, arithmetic that goes wrong on this thread shows in the flags of the processor and does not
 * end the process. The flags are clear at the start: a guarded call leaves only its own ones behind.
 *
 * Where a host has made the processor trap, a system with structured exceptions turns the trap into an
 * exception of the maths family (ZyMathsGuard::Translate). Elsewhere trapping is held off, and is back when
 * the object goes, together with the flags that the host had.
 */
class ArithmeticFaults
{
public:
    ArithmeticFaults();
    ArithmeticFaults(ArithmeticFaults const &) = delete;
    ArithmeticFaults & operator=(ArithmeticFaults const &) = delete;
    /** The flags (FE_INVALID and so on) that were raised since the start. */
    int raised() const;

#ifdef _WIN32
    ~ArithmeticFaults() = default;
    /** After a failure: puts the previous translator of structured exceptions back. */
    void restoreTranslator();
#else
    ~ArithmeticFaults()
    {
        if (m_held) {
            giveBack();
        }
    }
    void restoreTranslator() {} // there are none
#endif

private:
#ifdef _WIN32
#ifdef _MSC_VER
    _se_translator_function m_previous;
#endif
#else
    void giveBack();

    std::fenv_t m_environment; ///< valid while trapping is held off
    bool m_held;
#endif
};

/**
 * What a function of the C library gave for one or two arguments, with the flags raised that belong to it.
 *
 * Most libraries raise them by themselves. That of one compiler tells some failures by errno only, or by
 * nothing, and sets errno also where nothing has failed: there the flags follow from result and arguments.
 */
#ifdef __MINGW32__
double judged(double result, double first, double second = 1.0);
#else
inline double judged(double result, double, double = 1.0)
{
    return result;
}
#endif
} // namespace ZyPlatform
