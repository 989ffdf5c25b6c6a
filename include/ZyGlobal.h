// SPDX-License-Identifier: BSD-3-Clause
// One store of typed values for the whole process.
#pragma once

#include <ZyDeque.h>
#include <ZyExport.h>
#include <ZyGlobalObject.h>
#include <ZyPrivateObject.h>
#include <ZySharedPtr.h>
#include <ZyString.h>
#include <ZyUUID.h>
#include <ZyUniquePtr.h>

template <class T>
class ZyContainer;
class ZyGlobalTable;

/**
 * One store of typed values for the whole process, by which parts that share no object hand values to each
 * other. Both sides know the identifier, which is nothing but a key: anyone may write to any.
 *
 * \code
 * ZyUUID const limits("limits of the editor");
 * ZyGlobal::Set(ZyDeque<double>{0.1, 0.9}, limits);
 * ZyGlobal::GetDoubles(limits)[1];   // 0.9
 * ZyGlobal::Destroy(limits);
 * \endcode
 *
 * A single value is a container of one, so that what was stored by the one form is read by the other. A later
 * value may be of another type.
 *
 * The store is made by the first call and lives until the library is unloaded. A module that is unloaded
 * earlier must destroy the objects of its own classes before. A stored object may use the store while it is
 * destroyed.
 *
 * \threads Only the making of the store is guarded: writers must be kept apart from each other and from
 * readers. Readers may be many.
 */
class ZYCORE_EXPORT ZyGlobal
{
public:
    ZyGlobal(ZyGlobal const &) = delete;
    ZyGlobal & operator=(ZyGlobal const &) = delete;
    virtual ~ZyGlobal();

    /** Stores an object under a new identifier. \return the identifier */
    static ZyUUID Create(ZyUniquePtr<ZyGlobalObject> object);
    /** Stores an object; one that is there is replaced, and pointers to it expire. A null pointer is stored
     * too. */
    static void SetData(ZyUniquePtr<ZyGlobalObject> object, ZyUUID const & id);
    /** The object; empty when there is none. */
    static ZyWeakPtr<ZyGlobalObject> Get(ZyUUID const & id);
    /** Removes the object; nothing happens when there is none. */
    static void Destroy(ZyUUID const & id);
    /** Removes all objects. */
    static void Clear();

    /** Stores one value. */
    static void Set(double const & value, ZyUUID const & id);
    static void Set(int value, ZyUUID const & id);
    static void Set(ZyString const & value, ZyUUID const & id);
    /** Stores the values and takes the deque over, which is empty afterwards. */
    static void Set(ZyDeque<double> && values, ZyUUID const & id);
    static void Set(ZyDeque<int> && values, ZyUUID const & id);
    static void Set(ZyDeque<ZyString> && values, ZyUUID const & id);
    /** Stores copies of the values in the order of iteration. */
    static void Set(ZyContainer<double> const & values, ZyUUID const & id);
    static void Set(ZyContainer<int> const & values, ZyUUID const & id);
    static void Set(ZyContainer<ZyString> const & values, ZyUUID const & id);

    /**
     * The one value, valid until the object is replaced or destroyed.
     *
     * \deliberate{global-missing-is-wrong-type} A missing object, one of another type and one of several values give
     * the same words; who must tell them apart asks Get().
     *
     * \throws ZyInvalidCallException "Invalid type for ZyGlobal::GetDouble call"
     * \throws ZyNullPointerException a host's container object holds no deque; so do all the others below
     */
    static double const & GetDouble(ZyUUID const & id);
    /** The one value. \throws ZyInvalidCallException "Invalid type for ZyGlobal::GetInt call" */
    static int GetInt(ZyUUID const & id);
    /** The one value. \throws ZyInvalidCallException "Invalid type for ZyGlobal::GetString call" */
    static ZyString GetString(ZyUUID const & id);
    /**
     * The values, of any number, valid until the object is replaced or destroyed.
     * \throws ZyInvalidCallException "Invalid type for ZyGlobal::GetDoubles call"
     */
    static ZyDeque<double> const & GetDoubles(ZyUUID const & id);
    /** The same. \throws ZyInvalidCallException "Invalid type for ZyGlobal::GetInts call" */
    static ZyDeque<int> const & GetInts(ZyUUID const & id);
    /** The same. \throws ZyInvalidCallException "Invalid type for ZyGlobal::GetStrings call" */
    static ZyDeque<ZyString> const & GetStrings(ZyUUID const & id);

private:
    ZyGlobal();

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }
    ZYCORE_PRIVATE static ZyGlobalTable & Table();

    ZyPrivatePtr<Private> m_d;
};
