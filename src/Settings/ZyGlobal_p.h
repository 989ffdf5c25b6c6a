// SPDX-License-Identifier: BSD-3-Clause
// The table behind the process-wide store.
#pragma once

#include <ZyGlobalObject.h>
#include <ZySharedPtr.h>
#include <ZyUUID.h>

#include <string>
#include <unordered_map>

/** Objects by the text of their identifiers. What leaves the table dies last: an object may use it meanwhile.
 */
class ZyGlobalTable
{
public:
    using Map = std::unordered_map<std::string, ZySharedPtr<ZyGlobalObject>>;

    void set(ZySharedPtr<ZyGlobalObject> object, ZyUUID const & id) { m_objects[key(id)].swap(object); }
    void remove(ZyUUID const & id)
    {
        auto const removed = m_objects.extract(key(id));
        static_cast<void>(removed);
    }
    /** Begins anew: emptying a grown map would keep its buckets. */
    void clear()
    {
        Map removed = fresh();
        removed.swap(m_objects);
    }
    /** The object, on loan; null when there is none. */
    ZySharedPtr<ZyGlobalObject> const * find(ZyUUID const & id) const
    {
        auto const found = m_objects.find(key(id));
        return found == m_objects.end() ? nullptr : &found->second;
    }
    Map const & objects() const { return m_objects; }

private:
    static std::string const & key(ZyUUID const & id) { return id.toString().toStdString(); }
    static Map fresh()
    {
        Map objects(8);
        objects.max_load_factor(1.0F);
        return objects;
    }

    Map m_objects = fresh();
};
