// SPDX-License-Identifier: BSD-3-Clause
// The bindings of values that are child elements: pairs, points and collections.
#include <ZyXMLObject.h>

#include <ZyDeque.h>
#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyPoint.h>
#include <ZyString.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLElementWriter.h>
#include <ZyXMLLambdaRule.h>

#include "XML/ZyXMLBinding_p.h"

using ZyXMLBinding::child;
using ZyXMLBinding::define;
using ZyXMLBinding::defineDeque;
using ZyXMLBinding::Definition;
using ZyXMLBinding::rememberNew;
using ZyXMLBinding::takeOut;

namespace
{
constexpr char const * pointSlot = "point";

/** Two children that are the texts of the members. */
template <class T>
void writePair(ZyXMLElementWriter & element, ZyPair<T, T> const & pair)
{
    ZyXMLObject<T>::Write(*child(element, "First"), pair.first);
    ZyXMLObject<T>::Write(*child(element, "Second"), pair.second);
}

template <class T>
Definition<ZyPair<T, T>> definePair()
{
    using Pair = ZyPair<T, T>;
    return define<Pair>(
        [](ZyXMLRule & rule) {
            ZySharedPtr<Pair> const pair = rememberNew<Pair>(rule, ZyXMLBinding::valueSlot);
            rule.addChildRule("First", [pair](ZyXMLRule &, ZyXMLElementReader & element) {
                pair->first = T(element.readText());
            });
            rule.addChildRule("Second", [pair](ZyXMLRule &, ZyXMLElementReader & element) {
                pair->second = T(element.readText());
            });
        },
        [](ZyXMLRule & rule, ZyXMLElementReader &) { *rule.recall<Pair>(ZyXMLBinding::valueSlot) = Pair(); },
        [](ZyXMLRule & rule) { return takeOut<Pair>(rule, ZyXMLBinding::valueSlot); });
}

template <class T>
void writePoint(ZyXMLElementWriter & element, ZyPointTemplate<T> const & value)
{
    ZyXMLObject<T>::Write(*child(element, "X"), value.x);
    ZyXMLObject<T>::Write(*child(element, "Y"), value.y);
}

/** A point has no start: what an element does not tell stays as it was. */
template <class T>
Definition<ZyPointTemplate<T>> definePoint(T (*coordinate)(ZyXMLElementReader const &))
{
    using Point = ZyPointTemplate<T>;
    return define<Point>(
        [coordinate](ZyXMLRule & rule) {
            ZySharedPtr<Point> const value = rememberNew<Point>(rule, pointSlot);
            rule.addChildRule("X", [value, coordinate](ZyXMLRule &, ZyXMLElementReader & element) {
                value->x = coordinate(element);
            });
            rule.addChildRule("Y", [value, coordinate](ZyXMLRule &, ZyXMLElementReader & element) {
                value->y = coordinate(element);
            });
        },
        {}, [](ZyXMLRule & rule) { return ZyUniquePtr<Point>(new Point(*rule.recall<Point>(pointSlot))); });
}

template <class T>
void writeDeque(ZyXMLElementWriter & element, ZyDeque<T> const & items)
{
    for (T const & item : items.std_deque()) {
        ZyXMLObject<T>::Write(*child(element, "Item"), item);
    }
}
} // namespace

void ZyXMLObject<ZyPair<ZyFilePath, ZyFilePath>>::Write(ZyXMLElementWriter & element, Value const & value)
{
    writePair(element, value);
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyPair<ZyFilePath, ZyFilePath>>>
ZyXMLObject<ZyPair<ZyFilePath, ZyFilePath>>::LoadRule()
{
    static auto const definition = definePair<ZyFilePath>();
    return definition;
}

void ZyXMLObject<ZyPair<ZyString, ZyString>>::Write(ZyXMLElementWriter & element, Value const & value)
{
    writePair(element, value);
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyPair<ZyString, ZyString>>>
ZyXMLObject<ZyPair<ZyString, ZyString>>::LoadRule()
{
    static auto const definition = definePair<ZyString>();
    return definition;
}

void ZyXMLObject<ZyPoint>::Write(ZyXMLElementWriter & element, ZyPoint const & value)
{
    writePoint(element, value);
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyPoint>> ZyXMLObject<ZyPoint>::LoadRule()
{
    static auto const definition =
        definePoint<int>([](ZyXMLElementReader const & element) { return element.readText().toInt(); });
    return definition;
}

void ZyXMLObject<ZyPointD>::Write(ZyXMLElementWriter & element, ZyPointD const & value)
{
    writePoint(element, value);
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyPointD>> ZyXMLObject<ZyPointD>::LoadRule()
{
    static auto const definition =
        definePoint<double>([](ZyXMLElementReader const & element) { return element.readTextBase64(); });
    return definition;
}

void ZyXMLObject<ZyDeque<int>>::Write(ZyXMLElementWriter & element, ZyDeque<int> const & value)
{
    writeDeque(element, value);
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyDeque<int>>> ZyXMLObject<ZyDeque<int>>::LoadRule()
{
    static auto const definition = defineDeque<int>("Item", ZyXMLObject<int>::LoadRule());
    return definition;
}

void ZyXMLObject<ZyDeque<double>>::Write(ZyXMLElementWriter & element, Value const & value)
{
    writeDeque(element, value);
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyDeque<double>>> ZyXMLObject<ZyDeque<double>>::LoadRule()
{
    static auto const definition = defineDeque<double>("Item", ZyXMLObject<double>::LoadRule());
    return definition;
}

void ZyXMLObject<ZyDeque<ZyString>>::Write(ZyXMLElementWriter & element, Value const & value)
{
    writeDeque(element, value);
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyDeque<ZyString>>> ZyXMLObject<ZyDeque<ZyString>>::LoadRule()
{
    static auto const definition = defineDeque<ZyString>("Item", ZyXMLObject<ZyString>::LoadRule());
    return definition;
}
