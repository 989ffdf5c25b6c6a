// SPDX-License-Identifier: BSD-3-Clause
// The variant as text, the names of its types, and the exception that tells them.
#include <Core/ZyVariant_p.h>

#include <array>
#include <cstddef>

namespace
{
constexpr std::array<char const *, 9> names = {"Null",   "Boolean", "FilePath", "FilePathPair", "Integer",
                                               "Double", "Size",    "String",   "StringPair"};

ZyString textOf(bool value)
{
    return value ? "true" : "false";
}

ZyString textOf(int value)
{
    return value;
}

ZyString textOf(unsigned int value)
{
    return value;
}

ZyString textOf(double const & value)
{
    return ZyString::ToString(value);
}

ZyString textOf(ZyFilePath const & value)
{
    return value.toString();
}

ZyString textOf(ZyString const & value)
{
    return value;
}

template <class T>
ZyString textOf(ZyPair<T, T> const & value)
{
    return "[" + textOf(value.first) + "," + textOf(value.second) + "]";
}
} // namespace

ZyString ZyVariant::toString() const
{
    if (m_type == Null) {
        return "null";
    }
    return std::visit([](auto const & value) { return textOf(value); }, d()->value);
}

char const * ZyVariant::TypeString(Type type)
{
    std::size_t const index = static_cast<std::size_t>(type);
    return index < names.size() ? names[index] : "Unknown";
}

ZyVariant::Type ZyVariant::StringType(ZyString name)
{
    for (int type = Boolean; type <= StringPair; ++type) {
        if (name == TypeString(static_cast<Type>(type))) {
            return static_cast<Type>(type);
        }
    }
    return Null;
}

ZyBadVariantAccessException::ZyBadVariantAccessException(ZyVariant::Type requested, ZyVariant::Type actual)
    : ZyException(ZyString("Bad variant access [requested = ") + ZyVariant::TypeString(requested) +
                  "] [actual = " + ZyVariant::TypeString(actual) + "]")
{}

char const * ZyBadVariantAccessException::name() const
{
    return "ZyBadVariantAccessException";
}
