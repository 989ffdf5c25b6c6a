// SPDX-License-Identifier: BSD-3-Clause
// Rules made of functions: how one type is loaded, and the rule that loads it.
#pragma once

#include <ZySharedPtr.h>
#include <ZyUniquePtr.h>
#include <ZyXMLRule.h>

#include <functional>
#include <utility>

/**
 * How values of type T are loaded. One definition serves all rules of the type: whatever belongs to a single
 * element is kept in the memory of the rule, which each function is given. Any of the three may be empty.
 */
template <class T>
struct ZyXMLLambdaDefinition
{
    /** Prepares a rule that has joined a loader: fills its memory and adds its child rules. */
    std::function<void(ZyXMLRule &)> setup;
    /** Called when an element begins, before its children. */
    std::function<void(ZyXMLRule &, ZyXMLElementReader &)> start;
    /** Called when an element has ended: gives the finished value. */
    std::function<ZyUniquePtr<T>(ZyXMLRule &)> finish;
};

/** A rule that follows a definition and hands each value to a receiver. */
template <class T>
class ZyXMLLambdaRule : public ZyXMLRule
{
public:
    /** \a definition must not be null; \a receiver may be empty. */
    ZyXMLLambdaRule(ZyXMLPath const & path, ZySharedPtr<ZyXMLLambdaDefinition<T>> definition,
                    std::function<void(ZyUniquePtr<T>)> receiver = {})
        : ZyXMLRule(path), m_definition(std::move(definition)), m_receiver(std::move(receiver))
    {}

    void onAdded() override
    {
        if (m_definition->setup) {
            m_definition->setup(*this);
        }
    }
    void onStart(ZyXMLElementReader & element) override
    {
        if (m_definition->start) {
            m_definition->start(*this, element);
        }
    }
    /** Gives the receiver the finished value; a definition that finishes nothing gives an empty pointer. */
    void onFinish() override
    {
        ZyUniquePtr<T> value;
        if (m_definition->finish) {
            value = m_definition->finish(*this);
        }
        if (m_receiver) {
            m_receiver(std::move(value));
        }
    }

private:
    ZySharedPtr<ZyXMLLambdaDefinition<T>> m_definition;
    std::function<void(ZyUniquePtr<T>)> m_receiver;
};
