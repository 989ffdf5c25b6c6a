// SPDX-License-Identifier: BSD-3-Clause
// What happens at the elements of one path while a document is loaded.
#pragma once

#include <ZyDeque.h>
#include <ZyExport.h>
#include <ZyObject.h>
#include <ZyPair.h>
#include <ZyPrivateObject.h>
#include <ZySharedPtr.h>
#include <ZyString.h>
#include <ZyTemplateObject.h>
#include <ZyUniquePtr.h>
#include <ZyXMLPath.h>

#include <functional>

class ZyXMLElementReader;
class ZyXMLLoader;

/**
 * A rule of a ZyXMLLoader: it is bound to a path, and is called at every element there.
 *
 * Hosts rarely derive from it: ZyXMLLambdaRule makes one out of three functions, and a type that has a
 * ZyXMLObject comes with its rule.
 *
 * One rule serves all elements of its path, one after the other. What it knows about the element under way is
 * kept in its memory, a few named objects that live as long as the rule:
 *
 * \code
 * definition->setup = [](ZyXMLRule & rule) {
 *     auto limit = rule.remember("val", ZySharedPtr<Limit>(new Limit));
 *     rule.addChildRule<int>("Value", [limit](ZyUniquePtr<int> value) { limit->value = *value; });
 * };
 * definition->start = [](ZyXMLRule & rule, ZyXMLElementReader &) { *rule.recall<Limit>("val") = Limit(); };
 * \endcode
 *
 * Child rules hold on to the very object that was remembered: begin the next element by assigning to it, not
 * by remembering another one.
 *
 * \threads one thread at a time, together with the loader
 */
class ZYCORE_EXPORT ZyXMLRule
{
public:
    /** What a rule does when its element begins. */
    using Start = std::function<void(ZyXMLRule &, ZyXMLElementReader &)>;

    ZyXMLRule(ZyXMLRule const &) = delete;
    ZyXMLRule & operator=(ZyXMLRule const &) = delete;
    virtual ~ZyXMLRule();

    /** Called once by ZyXMLLoader::add, when the rule has joined the loader: the place to add child rules. */
    virtual void onAdded() = 0;
    /**
     * Called at each element of the path, before its children. Text must be read here.
     *
     * \deliberate{two-exceptions-end-the-children} Do not throw ZyInvalidUseException or ZyNullXMLStreamElementException
     * from here or from onFinish(): the loader takes them as a sign that the surrounding element was read
     * already, and leaves out the rest of its children.
     */
    virtual void onStart(ZyXMLElementReader & element) = 0;
    /** Called at each element of the path, after its children. */
    virtual void onFinish() = 0;

    /** Where the rule applies. */
    ZyXMLPath const & path() const;
    /** The loader that the rule belongs to; empty until it is added. */
    ZyWeakPtr<ZyXMLLoader> const & loader() const;
    /** Called by the loader that the rule joins. Does not move the rule from one loader to another. */
    void setLoader(ZyWeakPtr<ZyXMLLoader> const & loader);

    /**
     * Adds a rule for the child elements of a name, which calls \a start at each of them and delivers
     * nothing.
     * \throws ZyNullPointerException "XML rule cannot add a child rule when it is not assigned to a parent loader"
     * \throws ZyXMLDuplicateRuleException as ZyXMLLoader::add
     */
    void addChildRule(ZyString const & name, Start start);
    /**
     * Adds a rule for the child elements of a name that hold a T, which hands each value to \a receiver.
     * \throws ZyNullPointerException "No ZyXMLLoader object available when trying to add child rule"
     * \throws ZyXMLDuplicateRuleException as ZyXMLLoader::add
     */
    template <class T>
    void addChildRule(ZyString const & name, std::function<void(ZyUniquePtr<T>)> receiver);

    /**
     * Keeps an object in the memory of the rule under a name, without regard to case; an object that is there
     * is replaced. A null pointer is not kept.
     * \return \a object
     */
    template <class T>
    ZySharedPtr<T> remember(ZyString const & name, ZySharedPtr<T> object)
    {
        if (object) {
            setMemory(ZyPair<ZyString, ZySharedPtr<ZyObject>>(
                name, ZySharedPtr<ZyObject>(new ZyTemplateObject<ZySharedPtr<T>>(object))));
        }
        return object;
    }
    /**
     * The object that is remembered under a name as exactly a T.
     * \throws ZyNotFoundException there is none, or one of another type: "Item not found: " and the name
     */
    template <class T>
    ZySharedPtr<T> recall(ZyString const & name) const
    {
        return unwrapped<T>(readMemory(name).get(), name);
    }
    /** The same, without making a string of a literal. */
    template <class T>
    ZySharedPtr<T> recall(char const * name) const
    {
        return unwrapped<T>(findMemory(name), name);
    }

protected:
    /** A rule at the empty path, which is that of no element. */
    ZyXMLRule();
    explicit ZyXMLRule(ZyXMLPath const & path);
    explicit ZyXMLRule(ZyXMLPath && path);

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    void setMemory(ZyPair<ZyString, ZySharedPtr<ZyObject>> slot);
    ZySharedPtr<ZyObject> readMemory(ZyString const & name) const;
    ZyObject * findMemory(char const * name) const;
    ZySharedPtr<ZyXMLLoader> loaderForChild() const;
    [[noreturn]] static void ThrowNotFound(char const * name);

    template <class T>
    static ZySharedPtr<T> unwrapped(ZyObject * object, char const * name)
    {
        auto const * const found = dynamic_cast<ZyTemplateObject<ZySharedPtr<T>> *>(object);
        if (!found) {
            ThrowNotFound(name);
        }
        return found->value();
    }

    ZyPrivatePtr<Private> m_d;
    ZyXMLPath m_path;
};

// Adding a typed child needs the loader, which needs rules.
#include <ZyXMLLoader.h> // IWYU pragma: keep
