// SPDX-License-Identifier: BSD-3-Clause
// The tagged value: construction, assignment, reading and order.
#include <Core/ZyVariant_p.h>

#include <ZyMaths.h>

#include <utility>

ZyVariant::ZyVariant() : m_d(new Private), m_type(Null) {}

ZyVariant::ZyVariant(bool value) : m_d(new Private(std::in_place_type<bool>, value)), m_type(Boolean) {}

ZyVariant::ZyVariant(int value) : m_d(new Private(std::in_place_type<int>, value)), m_type(Integer) {}

ZyVariant::ZyVariant(unsigned int value)
    : m_d(new Private(std::in_place_type<unsigned int>, value)), m_type(Size)
{}

ZyVariant::ZyVariant(double const & value)
    : m_d(new Private(std::in_place_type<double>, value)), m_type(Double)
{}

ZyVariant::ZyVariant(char const * value)
    : m_d(new Private(std::in_place_type<ZyString>, value)), m_type(String)
{}

ZyVariant::ZyVariant(ZyString const & value)
    : m_d(new Private(std::in_place_type<ZyString>, value)), m_type(String)
{}

ZyVariant::ZyVariant(ZyString && value)
    : m_d(new Private(std::in_place_type<ZyString>, std::move(value))), m_type(String)
{}

ZyVariant::ZyVariant(ZyFilePath const & value)
    : m_d(new Private(std::in_place_type<ZyFilePath>, value)), m_type(FilePath)
{}

ZyVariant::ZyVariant(ZyPair<ZyString, ZyString> const & value)
    : m_d(new Private(std::in_place_type<ZyPair<ZyString, ZyString>>, value)), m_type(StringPair)
{}

ZyVariant::ZyVariant(ZyPair<ZyFilePath, ZyFilePath> const & value)
    : m_d(new Private(std::in_place_type<ZyPair<ZyFilePath, ZyFilePath>>, value)), m_type(FilePathPair)
{}

ZyVariant::ZyVariant(ZyVariant const & other) : m_d(new Private(other.d()->value)), m_type(other.m_type) {}

ZyVariant::ZyVariant(ZyVariant && other) : m_d(new Private(std::move(other.d()->value))), m_type(other.m_type)
{
    other.m_type = Null;
}

ZyVariant::~ZyVariant() = default;

ZyVariant & ZyVariant::operator=(ZyVariant const & other)
{
    set(other);
    return *this;
}

ZyVariant & ZyVariant::operator=(ZyVariant && other)
{
    set(std::move(other));
    return *this;
}

/**
 * A value of another kind is built completely before the held one goes: it may be made of a part of that, and
 * a failed allocation must leave what was there. Hence a new state where building can fail.
 */
template <class T>
void ZyVariant::assign(Type type, T && value)
{
    using Kind = std::decay_t<T>;
    if (Kind * const held = std::get_if<Kind>(&d()->value)) {
        *held = std::forward<T>(value);
    } else if constexpr (std::is_arithmetic_v<Kind>) {
        d()->value.emplace<Kind>(Kind(value));
    } else {
        d().reset(new Private(std::in_place_type<Kind>, std::forward<T>(value)));
    }
    m_type = type;
}

void ZyVariant::set(bool value)
{
    assign(Boolean, value);
}

void ZyVariant::set(int value)
{
    assign(Integer, value);
}

void ZyVariant::set(unsigned int value)
{
    assign(Size, value);
}

void ZyVariant::set(double const & value)
{
    assign(Double, value);
}

void ZyVariant::set(char const * value)
{
    assign(String, ZyString(value));
}

void ZyVariant::set(ZyString const & value)
{
    assign(String, value);
}

void ZyVariant::set(ZyString && value)
{
    assign(String, std::move(value));
}

void ZyVariant::set(ZyFilePath const & value)
{
    assign(FilePath, value);
}

void ZyVariant::set(ZyPair<ZyString, ZyString> const & value)
{
    assign(StringPair, value);
}

void ZyVariant::set(ZyPair<ZyFilePath, ZyFilePath> const & value)
{
    assign(FilePathPair, value);
}

void ZyVariant::set(ZyVariant const & other)
{
    if (other.m_type == Null) { // whatever is left inside of it
        assign(Null, false);
    } else if (this != &other) {
        std::visit([&](auto const & value) { assign(other.m_type, value); }, other.d()->value);
    }
}

void ZyVariant::set(ZyVariant && other)
{
    if (other.m_type == Null) {
        assign(Null, false);
    } else if (this != &other) {
        std::visit([&](auto & value) { assign(other.m_type, std::move(value)); }, other.d()->value);
    }
}

void ZyVariant::swap(ZyVariant & other) noexcept
{
    d().swap(other.d());
    std::swap(m_type, other.m_type);
}

template <class T>
T const & ZyVariant::get(Type requested) const
{
    if (m_type != requested) {
        throw ZyBadVariantAccessException(requested, m_type);
    }
    return std::get<T>(d()->value);
}

bool ZyVariant::asBoolean() const
{
    return get<bool>(Boolean);
}

int ZyVariant::asInteger() const
{
    return get<int>(Integer);
}

unsigned int ZyVariant::asSize() const
{
    return get<unsigned int>(Size);
}

double const & ZyVariant::asDouble() const
{
    return get<double>(Double);
}

ZyString const & ZyVariant::asString() const
{
    return get<ZyString>(String);
}

ZyFilePath const & ZyVariant::asFilePath() const
{
    return get<ZyFilePath>(FilePath);
}

ZyPair<ZyString, ZyString> const & ZyVariant::asStringPair() const
{
    return get<ZyPair<ZyString, ZyString>>(StringPair);
}

ZyPair<ZyFilePath, ZyFilePath> const & ZyVariant::asFilePathPair() const
{
    return get<ZyPair<ZyFilePath, ZyFilePath>>(FilePathPair);
}

namespace
{
template <class T>
int order(T const & a, T const & b)
{
    return a == b ? 0 : a < b ? -1 : 1;
}

int order(double const & a, double const & b)
{
    return ZyMaths::Double::Equal(a, b) ? 0 : a < b ? -1 : 1;
}

int order(ZyString const & a, ZyString const & b)
{
    return order(a.compare(b, ZyString::CaseInsensitive), 0);
}

template <class T>
int order(ZyPair<T, T> const & a, ZyPair<T, T> const & b)
{
    int const first = order(a.first, b.first);
    return first != 0 ? first : order(a.second, b.second);
}
} // namespace

int ZyVariant::compare(ZyVariant const & other) const
{
    if (m_type != other.m_type) {
        return m_type - other.m_type;
    }
    if (m_type == Null) { // whatever is left inside of a moved one
        return 0;
    }
    return std::visit(
        [&](auto const & value) {
            auto const * const otherValue = std::get_if<std::decay_t<decltype(value)>>(&other.d()->value);
            return otherValue ? order(value, *otherValue) : 0;
        },
        d()->value);
}
