// SPDX-License-Identifier: BSD-3-Clause
// One store of typed values for the whole process.
#include <ZyGlobal.h>

#include "Settings/ZyGlobal_p.h"

#include <ZyContainer.h>
#include <ZyException.h>

#include <utility>

class ZyGlobal::Private : public ZyPrivateObject
{
public:
    ZyGlobalTable table;
};

namespace
{
using Doubles = ZyContainerGlobalObject<double, 1>;
using Ints = ZyContainerGlobalObject<int, 2>;
using Strings = ZyContainerGlobalObject<ZyString, 3>;

template <class Object, class T>
void setItems(ZyDeque<T> && items, ZyUUID const & id)
{
    ZyGlobal::SetData(ZyUniquePtr<ZyGlobalObject>(new Object(std::move(items))), id);
}

template <class T>
ZyDeque<T> copied(ZyContainer<T> const & values)
{
    return ZyDeque<T>(values.begin(), values.end());
}

/** The deque of an object of the wanted class. */
template <class Object>
auto const & itemsOf(ZyGlobalTable const & table, ZyUUID const & id, char const * failure)
{
    ZySharedPtr<ZyGlobalObject> const * const found = table.find(id);
    auto const * const wanted = found ? dynamic_cast<Object const *>(found->get()) : nullptr;
    if (!wanted) {
        throw ZyInvalidCallException(failure);
    }
    return *wanted->value();
}

template <class Object>
auto const & onlyItemOf(ZyGlobalTable const & table, ZyUUID const & id, char const * failure)
{
    auto const & items = itemsOf<Object>(table, id, failure).std_deque();
    if (items.size() != 1) {
        throw ZyInvalidCallException(failure);
    }
    return items.front();
}
} // namespace

ZyGlobalObject::~ZyGlobalObject() = default;

ZyGlobal::ZyGlobal() : m_d(new Private) {}

ZyGlobal::~ZyGlobal() = default;

ZyGlobalTable & ZyGlobal::Table()
{
    static ZyUniquePtr<ZyGlobal> const store(new ZyGlobal);
    return store->d()->table;
}

ZyUUID ZyGlobal::Create(ZyUniquePtr<ZyGlobalObject> object)
{
    ZyUUID id;
    SetData(std::move(object), id);
    return id;
}

void ZyGlobal::SetData(ZyUniquePtr<ZyGlobalObject> object, ZyUUID const & id)
{
    Table().set(std::move(object), id);
}

ZyWeakPtr<ZyGlobalObject> ZyGlobal::Get(ZyUUID const & id)
{
    ZySharedPtr<ZyGlobalObject> const * const found = Table().find(id);
    return found ? ZyWeakPtr<ZyGlobalObject>(*found) : ZyWeakPtr<ZyGlobalObject>();
}

void ZyGlobal::Destroy(ZyUUID const & id)
{
    Table().remove(id);
}

void ZyGlobal::Clear()
{
    Table().clear();
}

void ZyGlobal::Set(double const & value, ZyUUID const & id)
{
    setItems<Doubles>(ZyDeque<double>{value}, id);
}

void ZyGlobal::Set(int value, ZyUUID const & id)
{
    setItems<Ints>(ZyDeque<int>{value}, id);
}

void ZyGlobal::Set(ZyString const & value, ZyUUID const & id)
{
    setItems<Strings>(ZyDeque<ZyString>{value}, id);
}

void ZyGlobal::Set(ZyDeque<double> && values, ZyUUID const & id)
{
    setItems<Doubles>(std::move(values), id);
}

void ZyGlobal::Set(ZyDeque<int> && values, ZyUUID const & id)
{
    setItems<Ints>(std::move(values), id);
}

void ZyGlobal::Set(ZyDeque<ZyString> && values, ZyUUID const & id)
{
    setItems<Strings>(std::move(values), id);
}

void ZyGlobal::Set(ZyContainer<double> const & values, ZyUUID const & id)
{
    setItems<Doubles>(copied(values), id);
}

void ZyGlobal::Set(ZyContainer<int> const & values, ZyUUID const & id)
{
    setItems<Ints>(copied(values), id);
}

void ZyGlobal::Set(ZyContainer<ZyString> const & values, ZyUUID const & id)
{
    setItems<Strings>(copied(values), id);
}

double const & ZyGlobal::GetDouble(ZyUUID const & id)
{
    return onlyItemOf<Doubles>(Table(), id, "Invalid type for ZyGlobal::GetDouble call");
}

int ZyGlobal::GetInt(ZyUUID const & id)
{
    return onlyItemOf<Ints>(Table(), id, "Invalid type for ZyGlobal::GetInt call");
}

ZyString ZyGlobal::GetString(ZyUUID const & id)
{
    return onlyItemOf<Strings>(Table(), id, "Invalid type for ZyGlobal::GetString call");
}

ZyDeque<double> const & ZyGlobal::GetDoubles(ZyUUID const & id)
{
    return itemsOf<Doubles>(Table(), id, "Invalid type for ZyGlobal::GetDoubles call");
}

ZyDeque<int> const & ZyGlobal::GetInts(ZyUUID const & id)
{
    return itemsOf<Ints>(Table(), id, "Invalid type for ZyGlobal::GetInts call");
}

ZyDeque<ZyString> const & ZyGlobal::GetStrings(ZyUUID const & id)
{
    return itemsOf<Strings>(Table(), id, "Invalid type for ZyGlobal::GetStrings call");
}
