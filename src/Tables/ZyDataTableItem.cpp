// SPDX-License-Identifier: BSD-3-Clause
// One cell of a data table.
#include <ZyDataTable.h>

#include <ZyException.h>
#include <ZyString.h>

class ZyDataTableItem::Private : public ZyPrivateObject
{
public:
    explicit Private(unsigned int span) : columnSpan(span) {}
    Private(ZyDeque<ZyVariant> const & itemValues, unsigned int span) : values(itemValues), columnSpan(span)
    {}
    Private(ZyDeque<ZyVariant> && itemValues, unsigned int span)
        : values(std::move(itemValues)), columnSpan(span)
    {}

    ZyDeque<ZyVariant> values; ///< top to bottom
    unsigned int columnSpan;
};

ZyDataTableItem::ZyDataTableItem() : ZyDataTableItem(ZyVariant(ZyString()), 1) {}

ZyDataTableItem::ZyDataTableItem(ZyVariant const & value) : ZyDataTableItem(value, 1) {}

ZyDataTableItem::ZyDataTableItem(ZyVariant && value) : ZyDataTableItem(std::move(value), 1) {}

ZyDataTableItem::ZyDataTableItem(ZyVariant const & value, unsigned int columnSpan)
    : m_d(new Private(columnSpan))
{
    d()->values.add(value);
}

ZyDataTableItem::ZyDataTableItem(ZyVariant && value, unsigned int columnSpan) : m_d(new Private(columnSpan))
{
    d()->values.add(std::move(value));
}

ZyDataTableItem::ZyDataTableItem(ZyDeque<ZyVariant> const & values) : ZyDataTableItem(values, 1) {}

ZyDataTableItem::ZyDataTableItem(ZyDeque<ZyVariant> && values) : ZyDataTableItem(std::move(values), 1) {}

ZyDataTableItem::ZyDataTableItem(ZyDeque<ZyVariant> const & values, unsigned int columnSpan)
    : m_d(new Private(values, columnSpan))
{}

ZyDataTableItem::ZyDataTableItem(ZyDeque<ZyVariant> && values, unsigned int columnSpan)
    : m_d(new Private(std::move(values), columnSpan))
{}

ZyDataTableItem::ZyDataTableItem(ZyDataTableItem const & other) : m_d(new Private(*other.d())) {}

ZyDataTableItem::ZyDataTableItem(ZyDataTableItem && other)
    : m_d(new Private(std::move(other.d()->values), other.d()->columnSpan))
{}

ZyDataTableItem::~ZyDataTableItem() = default;

ZyDataTableItem & ZyDataTableItem::operator=(ZyDataTableItem const & other)
{
    d()->values = other.d()->values;
    d()->columnSpan = other.d()->columnSpan;
    return *this;
}

ZyDataTableItem & ZyDataTableItem::operator=(ZyDataTableItem && other)
{
    if (this != &other) {
        d()->values = std::move(other.d()->values);
        d()->columnSpan = other.d()->columnSpan;
    }
    return *this;
}

unsigned int ZyDataTableItem::columnSpan() const
{
    return d()->columnSpan;
}

unsigned int ZyDataTableItem::numberValues() const
{
    return d()->values.size();
}

ZyVariant const & ZyDataTableItem::value() const
{
    if (d()->values.size() != 1) {
        throw ZyInvalidCallException("Cannot get value from data table, number of items equals: " +
                                     ZyString(d()->values.size()));
    }
    return d()->values.std_deque().front();
}

ZyDeque<ZyVariant> const & ZyDataTableItem::values() const
{
    return d()->values;
}

void ZyDataTableItem::set(ZyVariant const & value)
{
    set(ZyVariant(value));
}

void ZyDataTableItem::set(ZyVariant && value)
{
    // A deque of its own first: the value may be one of those that go.
    ZyDeque<ZyVariant> values;
    values.add(std::move(value));
    d()->values = std::move(values);
}

void ZyDataTableItem::set(ZyDeque<ZyVariant> && values)
{
    d()->values = std::move(values);
}

void ZyDataTableItem::forEachValue(std::function<void(ZyVariant const &)> visit) const
{
    for (ZyVariant const & value : d()->values.std_deque()) {
        visit(value);
    }
}

bool ZyDataTableItem::operator==(ZyDataTableItem const & other) const
{
    return d()->columnSpan == other.d()->columnSpan && d()->values == other.d()->values;
}

bool ZyDataTableItem::operator!=(ZyDataTableItem const & other) const
{
    return !(*this == other);
}
