// SPDX-License-Identifier: BSD-3-Clause
// Paths: making, copying, comparing, and the normal form. Parts, conversions and the way between two paths
// stand in sources of their own.
#include <ZyFilePath.h>

#include "Files/ZyFilePath_p.h"

#include <cstddef>
#include <string>
#include <utility>

namespace
{
// The first place at which one pass has something to change; the size when there is none.
std::size_t firstChange(std::string const & text)
{
    char last = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char const c = text[i];
        if (c == '/' || (c == ZyPathText::separator && last == ZyPathText::separator && i != 1)) {
            return i;
        }
        last = c;
    }
    return text.size();
}

// Turns slashes and drops a separator behind a separator, except that a path may begin with two.
void tidySeparators(std::string & text)
{
    std::size_t to = firstChange(text);
    for (std::size_t from = to; from < text.size(); ++from) {
        char const c = text[from] == '/' ? ZyPathText::separator : text[from];
        bool const doubled = c == ZyPathText::separator && to > 1 && text[to - 1] == ZyPathText::separator;
        if (!doubled) {
            text[to++] = c;
        }
    }
    text.resize(to);
}
} // namespace

void ZyFilePath::Private::normalise()
{
    tidySeparators(text.trim().toStdString());
}

ZyFilePath::ZyFilePath() : m_d(new Private) {}

ZyFilePath::ZyFilePath(ZyFilePath const & other) : m_d(new Private(other.d()->text)) {}

ZyFilePath::ZyFilePath(ZyFilePath && other) : m_d(new Private(std::move(other.d()->text))) {}

ZyFilePath::ZyFilePath(ZyString const & path) : m_d(Private::Normal(path)) {}

ZyFilePath::ZyFilePath(ZyString && path) : m_d(Private::Normal(std::move(path))) {}

ZyFilePath::ZyFilePath(ZyStringView const & path)
    : m_d(Private::Normal(std::string(ZyTextAccess::view(path))))
{}

ZyFilePath::ZyFilePath(char const * path) : m_d(Private::Normal(std::string(zyCText(path)))) {}

ZyFilePath::ZyFilePath(std::string const & path) : m_d(Private::Normal(std::string(path))) {}

ZyFilePath::ZyFilePath(std::string && path) : m_d(Private::Normal(std::move(path))) {}

ZyFilePath::ZyFilePath(Private * state) : m_d(state) {}

ZyFilePath::~ZyFilePath() = default;

ZyFilePath & ZyFilePath::operator=(ZyFilePath const & other)
{
    d()->text = other.d()->text;
    return *this;
}

ZyFilePath & ZyFilePath::operator=(ZyFilePath && other)
{
    d()->text = std::move(other.d()->text);
    return *this;
}

ZyFilePath ZyFilePath::CreateUnchecked(ZyString && path)
{
    return ZyFilePath(new Private(std::move(path)));
}

ZyString const & ZyFilePath::path() const
{
    return d()->text;
}

ZyString const & ZyFilePath::toString() const
{
    return d()->text;
}

ZyFilePath::operator ZyString const &() const
{
    return d()->text;
}

bool ZyFilePath::operator==(ZyFilePath const & other) const
{
    return d()->text == other.d()->text;
}

bool ZyFilePath::operator!=(ZyFilePath const & other) const
{
    return d()->text != other.d()->text;
}

bool ZyFilePath::operator<(ZyFilePath const & other) const
{
    return d()->text < other.d()->text;
}

bool ZyFilePath::operator<=(ZyFilePath const & other) const
{
    return d()->text <= other.d()->text;
}

bool ZyFilePath::operator>(ZyFilePath const & other) const
{
    return d()->text > other.d()->text;
}

bool ZyFilePath::operator>=(ZyFilePath const & other) const
{
    return d()->text >= other.d()->text;
}
