// SPDX-License-Identifier: BSD-3-Clause
// Collections and what they add to the standard ones.
#include <ZyCore.h>
#include <ZyHash.h>
#include <ZyPrint.h>

#include <algorithm>
#include <iostream>
#include <unordered_map>

// Takes every collection of the library: deque, vector, list.
double sum(ZyContainer<double> const & values)
{
    double all = 0;
    for (double value : values) {
        all += value;
    }
    return all;
}

int main()
{
    ZyDeque<ZyString> nets{"in", "out"};
    std::cout << nets.addUnique("OUT") << nets.contains("In") << ' ' << nets.size() << '\n';

    ZyVector<double> values{3.5, 1.5, 2.0};
    std::sort(values.std_vector().begin(), values.std_vector().end()); // the standard vector inside
    std::cout << values[0] << ' ' << sum(values) << '\n';

    // Search by value and access by index tell by an exception what is not there.
    try {
        std::cout << nets.find([](ZyString const & net) { return net.startsWith("o"); }) << '\n';
        std::cout << values[3] << '\n';
    } catch (ZyIndexOutOfBoundsException const & problem) {
        std::cout << problem.what() << '\n'; // the last valid index
    }

    ZyMatrix<int> counts(2, 3);
    counts(1, 2) = 7;
    std::cout << counts.rows() << " by " << counts.columns() << ", " << counts.std_vector().back() << '\n';

    // Keys without regard to case; text has no std::hash of its own, so that nobody takes one by accident.
    std::unordered_map<ZyString, int, ZyStringHash, ZyStringEqual> ports;
    ports["VCC"] = 1;
    std::cout << ports.count("vcc") << '\n';
}
