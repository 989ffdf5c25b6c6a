// SPDX-License-Identifier: BSD-3-Clause
// The state of a variant, and how the library's own tables handle many of them without an allocation each.
#pragma once

#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyString.h>
#include <ZyVariant.h>

#include <string>
#include <utility>
#include <variant>
#include <vector>

class ZyVariant::Private : public ZyPrivateObject
{
public:
    using Value = std::variant<bool, int, double, unsigned int, ZyFilePath, ZyPair<ZyFilePath, ZyFilePath>,
                               ZyString, ZyPair<ZyString, ZyString>>;

    Private() : value(false) {}
    explicit Private(Value const & other) : value(other) {}
    explicit Private(Value && other) : value(std::move(other)) {}
    template <class T, class... A>
    explicit Private(std::in_place_type_t<T> kind, A &&... arguments)
        : value(kind, std::forward<A>(arguments)...)
    {}

    Value value;
};

/**
 * The state of a value on its way into a variant.
 *
 * Moving a variant allocates; handing its state on does not. A table that must move its cells, or make a text
 * cell from characters, does so through this:
 *
 * \code
 * std::vector<ZyVariant> cells;
 * cells.reserve(count);
 * cells.emplace_back(5);                                     // one allocation, in place
 * cells.emplace_back(ZyVariantAccess::text("characters"));   // no string on the way
 * cells.emplace_back(ZyVariantAccess::take(temporary));      // relocates: temporary may only be destroyed
 * ZyVariantAccess::reserve(cells, 2 * count);                // relocates all of them
 * \endcode
 *
 * A vector that grows by itself copies every cell: reserve first, with the function below, which never
 * copies. To relocate into an existing cell, swap.
 */
struct ZYCORE_PRIVATE ZyVariantAccess
{
    /** The state of \a other, which has none afterwards and may only be destroyed. */
    static ZyVariantAccess take(ZyVariant & other) noexcept
    {
        return ZyVariantAccess(std::move(other.m_d), other.m_type);
    }

    /** A String of exactly these characters. */
    static ZyVariantAccess text(std::string && characters)
    {
        return ZyVariantAccess(ZyPrivatePtr<ZyVariant::Private>(new ZyVariant::Private(
                                   std::in_place_type<ZyString>, std::move(characters))),
                               ZyVariant::String);
    }

    /** Makes room for at least \a capacity cells; the ones that are there are relocated, and references to
     * them end. */
    static void reserve(std::vector<ZyVariant> & cells, std::size_t capacity)
    {
        if (capacity > cells.capacity()) {
            std::vector<ZyVariant> roomy;
            roomy.reserve(capacity);
            for (ZyVariant & cell : cells) {
                roomy.emplace_back(take(cell));
            }
            cells.swap(roomy);
        }
    }

    ZyPrivatePtr<ZyVariant::Private> state;
    ZyVariant::Type type;

private:
    ZyVariantAccess(ZyPrivatePtr<ZyVariant::Private> && owner, ZyVariant::Type kind) noexcept
        : state(std::move(owner)), type(kind)
    {}
};

inline ZyVariant::ZyVariant(ZyVariantAccess && value) noexcept
    : m_d(std::move(value.state)), m_type(value.type)
{}
