// SPDX-License-Identifier: BSD-3-Clause
// Loading documents by rules: a host says what happens at which path instead of writing a parser.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZySharedPtr.h>
#include <ZyUniquePtr.h>
#include <ZyXMLLambdaRule.h>
#include <ZyXMLObject.h>
#include <ZyXMLPath.h>
#include <ZyXMLRule.h>

#include <functional>
#include <utility>

class ZyXMLStreamReader;
template <class T>
class ZyXMLLambdaRule;

/**
 * Walks documents and calls the rules that are bound to the paths of their elements.
 *
 * \code
 * ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
 * std::vector<int> values;
 * loader->add<int>("Values/Value", [&](ZyUniquePtr<int> value) { values.push_back(*value); });
 *
 * ZyXMLStreamReader reader(ZyFilePath("values.xml"));
 * loader->load(reader);
 * \endcode
 *
 * At each element the order is: its rule's onStart, the children in document order, its rule's onFinish. An
 * element without a rule is no error, and rules deeper in it apply. Paths begin with the root element.
 * Attributes are seen by rules that ask for them and by nobody else.
 *
 * A document that breaks off or is malformed between two elements ends all open elements without an
 * exception, and a value under way is delivered as far as it was read. Look at the reader's `tokenType()`
 * after a load: `Invalid` tells, and `errorString()` says why.
 *
 * How deep elements nest is limited by memory alone, not by the stack of the thread.
 *
 * A loader serves any number of documents in turn. Rules cannot be removed; they go with the loader.
 *
 * \threads one thread at a time, together with all its rules
 * \cost finding the rule of an element does not depend on the number of rules
 */
class ZYCORE_EXPORT ZyXMLLoader
{
public:
    /** A loader without rules. */
    static ZySharedPtr<ZyXMLLoader> Create();
    ZyXMLLoader(ZyXMLLoader const &) = delete;
    ZyXMLLoader & operator=(ZyXMLLoader const &) = delete;
    virtual ~ZyXMLLoader();

    /**
     * Takes a rule over and lets it add its child rules. When one of those cannot be added, the rule and the
     * children before that one stay.
     * \throws ZyNullPointerException \a rule is empty: "ZyUniquePtr dereferencing nullptr"
     * \throws ZyXMLDuplicateRuleException there is a rule for the path: "Duplicate rule for XML path: " and the path
     */
    void add(ZyUniquePtr<ZyXMLRule> rule);
    /** Adds a rule for elements at \a path that hold a T, as ZyXMLObject<T> reads it; each value is handed to
     * \a receiver. */
    template <class T>
    void add(ZyXMLPath const & path, std::function<void(ZyUniquePtr<T>)> receiver)
    {
        add(ZyUniquePtr<ZyXMLRule>(
            new ZyXMLLambdaRule<T>(path, ZyXMLObject<T>::LoadRule(), std::move(receiver))));
    }

    /**
     * Runs the rules over a document, or, when the reader stands on a start tag, over that element as if it
     * were the root.
     *
     * When anything is thrown, the stream stays where it was, and values that were handed over stay with
     * their receivers.
     *
     * \throws ZyXMLException there is no element: "Reader failed to load content"
     * \throws ZyInvalidXMLException the text of the document is malformed at its beginning or within a text:
     *         "Invalid XML: " and the reason
     * \throws whatever a rule throws, except for ZyInvalidUseException and ZyNullXMLStreamElementException, which end the
     *         children of the element around it that has a rule
     */
    void load(ZyXMLStreamReader & reader);

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyXMLLoader();

    ZyPrivatePtr<Private> m_d;
};

template <class T>
void ZyXMLRule::addChildRule(ZyString const & name, std::function<void(ZyUniquePtr<T>)> receiver)
{
    loaderForChild()->add<T>(path().pushed(name), std::move(receiver));
}
