// SPDX-License-Identifier: BSD-3-Clause
// Filling and walking a million elements: through the container interface, through the wrappers, and the
// standard containers and Qt's beside them.
#include "Measure.h"

#include <ZyContainer.h>
#include <ZyDeque.h>
#include <ZyList.h>
#include <ZyMatrix.h>
#include <ZyVector.h>

#include <QList>
#include <QVector>

#include <deque>
#include <list>
#include <string>
#include <vector>

namespace bench
{

namespace
{

constexpr unsigned count = 1000000;

template <class Container>
Container filledWith(void (Container::*append)(int const &))
{
    Container container;
    for (unsigned i = 0; i < count; ++i) {
        (container.*append)(int(i));
    }
    return container;
}

template <class Container>
long sum(Container const & container)
{
    long total = 0;
    for (int element : container) {
        total += element;
    }
    return total;
}

/** Kept out of line: a caller of the interface does not know the container. */
__attribute__((noinline)) long sumOfInterface(ZyContainer<int> const & container)
{
    return sum(container);
}

template <class Container>
void registerWalk(std::string const & kind, Container container)
{
    addLoop("walk/" + kind, count, [container = std::move(container)] { return sum(container); });
}

template <class Container>
void registerInterfaceWalk(std::string const & kind, Container container)
{
    addLoop("walk/" + kind, count, [container = std::move(container)] { return sumOfInterface(container); });
}

void registerWalks()
{
    auto const deque = filledWith<std::deque<int>>(&std::deque<int>::push_back);
    auto const vector = filledWith<std::vector<int>>(&std::vector<int>::push_back);
    auto const list = filledWith<std::list<int>>(&std::list<int>::push_back);
    ZyDeque<int> const zyDeque(deque.begin(), deque.end());
    ZyVector<int> const zyVector(vector.begin(), vector.end());
    ZyList<int> const zyList(list.begin(), list.end());
    registerInterfaceWalk("deque/interface", zyDeque);
    registerInterfaceWalk("vector/interface", zyVector);
    registerInterfaceWalk("list/interface", zyList);
    addLoop("walk/deque/direct", count, [zyDeque] { return sum(zyDeque.std_deque()); });
    addLoop("walk/vector/direct", count, [zyVector] { return sum(zyVector.std_vector()); });
    addLoop("walk/list/direct", count, [zyList] { return sum(zyList.std_list()); });
    registerWalk("deque/std", deque);
    registerWalk("vector/std", vector);
    registerWalk("list/std", list);
    registerWalk("list/QList", filledWith<QList<int>>(&QList<int>::append));
}

void registerFills()
{
    addLoop("fill/deque/ours", count, [] { return filledWith<ZyDeque<int>>(&ZyDeque<int>::add).size(); });
    addLoop("fill/deque/std", count,
            [] { return filledWith<std::deque<int>>(&std::deque<int>::push_back).size(); });
    addLoop("fill/vector/ours", count, [] { return filledWith<ZyVector<int>>(&ZyVector<int>::add).size(); });
    addLoop("fill/vector/std", count,
            [] { return filledWith<std::vector<int>>(&std::vector<int>::push_back).size(); });
}

/** Checked access by index, and a matrix by row and column. */
void registerAccess()
{
    ZyVector<int> const vector(count, 1);
    addLoop("index/vector/ours", count, [vector] {
        long total = 0;
        for (unsigned i = 0; i < count; ++i) {
            total += vector[i];
        }
        return total;
    });
    addLoop("index/vector/std", count, [vector = std::vector<int>(count, 1)] {
        long total = 0;
        for (unsigned i = 0; i < count; ++i) {
            total += vector.at(i);
        }
        return total;
    });
    addLoop("index/matrix/ours", count, [matrix = ZyMatrix<int>(1000, 1000, 1)] {
        long total = 0;
        for (unsigned row = 0; row < 1000; ++row) {
            for (unsigned column = 0; column < 1000; ++column) {
                total += matrix.at(row, column);
            }
        }
        return total;
    });
}

} // namespace

void registerBenchmarks()
{
    registerWalks();
    registerFills();
    registerAccess();
}

} // namespace bench
