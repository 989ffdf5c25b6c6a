// SPDX-License-Identifier: BSD-3-Clause
// Powers and roots under the guard of arithmetic: against the plain functions, which let failures pass, and
// against the same checks by the functions of <cfenv>.
#include "Measure.h"
#include "peers/Workload.h"

#include <ZyMaths.h>

#include <cerrno>
#include <cfenv>
#include <cmath>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace bench
{

namespace
{

constexpr unsigned count = 4096;

/** Bases in [0.5, 2.5) and exponents in [-3, 3): no call fails. */
struct Arguments
{
    std::vector<double> bases;
    std::vector<double> exponents;

    Arguments()
    {
        Random random(17);
        for (unsigned i = 0; i < count; ++i) {
            bases.push_back(0.5 + 2.0 * random.unit());
            exponents.push_back(-3.0 + 6.0 * random.unit());
        }
    }
};

Arguments const & arguments()
{
    static Arguments const made;
    return made;
}

template <class Function>
void add(std::string const & name, Function function)
{
    addLoop(name, count, [function] {
        Arguments const & all = arguments();
        double sum = 0;
        for (unsigned i = 0; i < count; ++i) {
            sum += function(all.bases[i], all.exponents[i]);
        }
        return sum;
    });
}

/** The straightforward guard: clears everything, always. */
[[gnu::noinline]] double checked(std::function<double()> const & function)
{
    errno = 0;
    std::feclearexcept(FE_ALL_EXCEPT);
    double const result = function();
    int const raised = std::fetestexcept(FE_ALL_EXCEPT);
    if ((raised & ~FE_INEXACT) != 0 || (raised == 0 && errno != 0)) {
        throw std::runtime_error("arithmetic");
    }
    return result;
}

} // namespace

void registerBenchmarks()
{
    add("guarded/pow/ours", [](double const & x, double const & y) { return ZyMaths::Power::Pow(x, y); });
    add("guarded/pow/plain", [](double const & x, double const & y) { return std::pow(x, y); });
    add("guarded/pow/cfenv",
        [](double const & x, double const & y) { return checked([&x, &y] { return std::pow(x, y); }); });
    add("guarded/sqrt/ours", [](double const & x, double const &) { return ZyMaths::Power::Sqrt(x); });
    add("guarded/sqrt/plain", [](double const & x, double const &) { return std::sqrt(x); });
    add("guarded/sqrt/cfenv",
        [](double const & x, double const &) { return checked([&x] { return std::sqrt(x); }); });
    add("guarded/cosh/ours", [](double const & x, double const &) { return ZyMaths::Hyperbolic::Cosh(x); });
    add("guarded/cosh/plain", [](double const & x, double const &) { return std::cosh(x); });
}

} // namespace bench
