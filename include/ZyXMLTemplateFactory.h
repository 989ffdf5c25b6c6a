// SPDX-License-Identifier: BSD-3-Clause
// Making the object of an element whose name says which class it is.
#pragma once

#include <ZyExport.h>
#include <ZyList.h>
#include <ZyPrivateObject.h>
#include <ZyString.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLSerializableObject.h>

#include <memory>
#include <type_traits>

class ZyException;

/**
 * Makes objects by the names of their elements, without regard to case.
 *
 * \code
 * ZyXMLTemplateFactory factory;
 * factory.registerType<Gauge>("Gauge");
 * factory.registerType<Lamp>("Lamp");
 * std::unique_ptr<ZyXMLSerializableObject> object(factory.create(element));
 * \endcode
 *
 * \threads to be filled before it is shared; failures are collected without a lock
 */
class ZYCORE_EXPORT ZyXMLTemplateFactory : public ZyPrivateObject
{
public:
    /** What a caller of create() hands to the objects that are made: to be derived from. */
    class CreationArgument
    {
    public:
        CreationArgument() = default;
        CreationArgument(CreationArgument const &) = default;
        CreationArgument & operator=(CreationArgument const &) = default;
        virtual ~CreationArgument() = default;
    };

    /** No types. */
    ZyXMLTemplateFactory();
    ZyXMLTemplateFactory(ZyXMLTemplateFactory const &) = delete;
    ZyXMLTemplateFactory & operator=(ZyXMLTemplateFactory const &) = delete;
    ~ZyXMLTemplateFactory() override;

    /**
     * Registers a class for the elements of a name. An object is made by default, or from the argument of
     * create() where T has a constructor that takes a `CreationArgument const *`, and then reads the element.
     *
     * \deliberate{first-registration-stays} A name that is there keeps its first class, and nothing is raised: modules
     * register their defaults without asking what is there.
     */
    template <class T>
    void registerType(ZyString const & name)
    {
        registerClass(name, CreateObject<T>);
    }
    /** Whether a class is registered for a name. */
    [[nodiscard]] bool isRegistered(ZyString const & name) const;

    /** As create(reader, nullptr). */
    [[nodiscard]] ZyXMLSerializableObject * create(ZyXMLElementReader & reader) const;
    /**
     * Makes the object of an element. It belongs to the caller.
     *
     * \throws ZyUnknownXMLElementException no class has the element's name: "Unknown element: " and the name
     * \throws what the object throws while it reads the element; the message of a ZyException is kept in errors()
     */
    [[nodiscard]] ZyXMLSerializableObject * create(ZyXMLElementReader & reader,
                                                   CreationArgument const * argument) const;
    /** The messages of all failures of objects so far, oldest first. */
    ZyList<ZyString> const & errors() const;

private:
    using Creator = ZyXMLSerializableObject * (*)(ZyXMLElementReader &, CreationArgument const *);

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    void registerClass(ZyString const & name, Creator creator);
    void addError(ZyException const & failure) const;

    template <class T>
    static std::unique_ptr<T> Made([[maybe_unused]] CreationArgument const * argument)
    {
        if constexpr (std::is_constructible_v<T, CreationArgument const *>) {
            return std::make_unique<T>(argument);
        } else {
            return std::make_unique<T>();
        }
    }
    template <class T>
    static ZyXMLSerializableObject * CreateObject(ZyXMLElementReader & reader,
                                                  CreationArgument const * argument)
    {
        std::unique_ptr<T> object = Made<T>(argument);
        object->readXML(reader);
        return object.release();
    }

    ZyPrivatePtr<Private> m_d;
};
