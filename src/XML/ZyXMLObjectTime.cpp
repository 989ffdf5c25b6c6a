// SPDX-License-Identifier: BSD-3-Clause
// The bindings of identifiers, durations and points in time, which are the text of their element.
#include <ZyXMLObject.h>

#include <ZyBase64Converter.h>
#include <ZyString.h>
#include <ZyTimeDuration.h>
#include <ZyTimePoint.h>
#include <ZyUUID.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLElementWriter.h>
#include <ZyXMLLambdaRule.h>

#include "XML/ZyXMLBinding_p.h"

using ZyXMLBinding::define;
using ZyXMLBinding::rememberNew;
using ZyXMLBinding::takeOut;
using ZyXMLBinding::valueSlot;

void ZyXMLObject<ZyUUID>::Write(ZyXMLElementWriter & element, ZyUUID const & value)
{
    element.writeText(value.toString());
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyUUID>> ZyXMLObject<ZyUUID>::LoadRule()
{
    static auto const definition =
        define<ZyUUID>([](ZyXMLRule & rule) { rememberNew<ZyUUID>(rule, valueSlot); },
                       [](ZyXMLRule & rule, ZyXMLElementReader & element) {
                           *rule.recall<ZyUUID>(valueSlot) = ZyUUID(element.readText());
                       },
                       [](ZyXMLRule & rule) { return takeOut<ZyUUID>(rule, valueSlot); });
    return definition;
}

void ZyXMLObject<ZyTimeDuration>::Write(ZyXMLElementWriter & element, ZyTimeDuration const & value)
{
    element.writeText(ZyStringLongLongConverter().convert(value.count().value));
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyTimeDuration>> ZyXMLObject<ZyTimeDuration>::LoadRule()
{
    static auto const definition = define<ZyTimeDuration>(
        [](ZyXMLRule & rule) { rememberNew<ZyTimeDuration>(rule, valueSlot); },
        [](ZyXMLRule & rule, ZyXMLElementReader & element) {
            ZyTimeDuration::Nanoseconds const count{ZyStringLongLongConverter().convert(element.readText())};
            *rule.recall<ZyTimeDuration>(valueSlot) = count;
        },
        [](ZyXMLRule & rule) {
            return ZyUniquePtr<ZyTimeDuration>(new ZyTimeDuration(*rule.recall<ZyTimeDuration>(valueSlot)));
        });
    return definition;
}

void ZyXMLObject<ZyTimePoint>::Write(ZyXMLElementWriter & element, ZyTimePoint const & value)
{
    ZyXMLObject<ZyTimeDuration>::Write(element, value.duration());
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyTimePoint>> ZyXMLObject<ZyTimePoint>::LoadRule()
{
    static auto const definition = [] {
        auto const span = ZyXMLObject<ZyTimeDuration>::LoadRule();
        return define<ZyTimePoint>(
            [span](ZyXMLRule & rule) { span->setup(rule); },
            [span](ZyXMLRule & rule, ZyXMLElementReader & element) { span->start(rule, element); },
            [span](ZyXMLRule & rule) {
                return ZyUniquePtr<ZyTimePoint>(new ZyTimePoint(*span->finish(rule)));
            });
    }();
    return definition;
}
