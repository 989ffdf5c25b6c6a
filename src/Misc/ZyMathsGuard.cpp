// SPDX-License-Identifier: BSD-3-Clause
// The guard of arithmetic: flags, errno and faults of the processor become exceptions.
#include "Misc/ZyMathsGuard_p.h"

#include "Platform/ArithmeticFaults.h"

#include <ZyException.h>

#include <keelbase/Keelbase.h>

#include <cerrno>
#include <cfenv>

namespace
{
template <class E>
[[noreturn]] void fail(ZyPlatform::ArithmeticFaults & faults, E const & failure)
{
    faults.restoreTranslator();
    throw E(failure);
}
} // namespace

void ZyMathsGuard::Check(int raised, int error)
{
    if (raised == 0) {
        if (error == 0) {
            return;
        }
        if (error == EDOM) {
            throw ZyInvalidOperationMathsException();
        }
        throw ZyMathsException();
    }
    // By name: the numbers of the flags differ from system to system, and so would an order by number.
    if ((raised & FE_INVALID) != 0) {
        throw ZyInvalidOperationMathsException();
    }
    if ((raised & FE_DIVBYZERO) != 0) {
        throw ZyDivideByZeroException();
    }
    if ((raised & FE_OVERFLOW) != 0) {
        throw ZyOverflowException();
    }
    if ((raised & FE_UNDERFLOW) != 0) {
        throw ZyUnderflowException();
    }
    if ((raised & FE_INEXACT) == 0) {
        throw ZyMathsException(); // a flag that only this processor has
    }
}

void ZyMathsGuard::Translate(unsigned int code)
{
    sp_ResetFpu();
    switch (code) {
    case 0xC000008E:
        throw ZyDivideByZeroException();
    case 0xC0000090:
        throw ZyInvalidOperationMathsException();
    case 0xC0000091:
        throw ZyOverflowException();
    case 0xC0000093:
        throw ZyUnderflowException();
    default:
        throw ZyMathsException();
    }
}

// \deliberate{maths-guard-keeps-translator} Only a failure puts the previous translator of structured exceptions back:
// after a good call ours stays on the thread, and hosts count on it. Where there are no translators, nothing
// stays.
// \deliberate{maths-guard-narrows} A failure of a class below ZyMathsException that is not among the four leaves as a
// plain ZyMathsException with its message: callers catch these five classes exactly.
[[gnu::noinline]] double ZyMathsGuard::Run(std::function<double()> const & function)
{
    ZyPlatform::ArithmeticFaults faults;
    try {
        errno = 0;
        double const result = function();
        Check(faults.raised(), errno);
        return result;
    } catch (ZyOverflowException const & failure) {
        fail(faults, failure);
    } catch (ZyUnderflowException const & failure) {
        fail(faults, failure);
    } catch (ZyInvalidOperationMathsException const & failure) {
        fail(faults, failure);
    } catch (ZyDivideByZeroException const & failure) {
        fail(faults, failure);
    } catch (ZyMathsException const & failure) {
        fail(faults, failure);
    } catch (...) {
        fail(faults, ZyMathsException());
    }
}
