// SPDX-License-Identifier: BSD-3-Clause
// The state of a path, shared by the sources of the class.
#pragma once

#include <ZyFilePath.h>

#include "Core/ZyString_p.h"

#include <string>
#include <string_view>
#include <utility>

class ZyFilePath::Private : public ZyPrivateObject
{
public:
    Private() = default;
    explicit Private(ZyString const & path) : text(path) {}
    explicit Private(ZyString && path) : text(std::move(path)) {}
    explicit Private(std::string && path) : text(std::move(path)) {}

    /** A state in normal form, made from any text. */
    template <class T>
    static Private * Normal(T && path)
    {
        std::unique_ptr<Private> state(new Private(std::forward<T>(path)));
        state->normalise();
        return state.release();
    }
    void normalise();

    ZyString text;
};

// The parts of a path as slices of its text.
namespace ZyPathText
{
constexpr char separator = '\\';

inline bool endsAsDirectory(std::string_view path)
{
    return !path.empty() && path.back() == separator;
}
std::string_view root(std::string_view path);
std::string_view filename(std::string_view path);
std::string_view extension(std::string_view filename);
std::string_view parent(std::string_view path);
/** The path itself when it is a directory, else its parent. */
std::string_view directory(std::string_view path);
/** Equality without regard to case. */
bool same(std::string_view a, std::string_view b);
} // namespace ZyPathText
