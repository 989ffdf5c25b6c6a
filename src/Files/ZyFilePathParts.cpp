// SPDX-License-Identifier: BSD-3-Clause
// The parts of a path, and what is decided and built from them. Plain work on the stored text.
#include <ZyFilePath.h>

#include "Core/ZyCaseFold_p.h"
#include "Files/ZyFilePath_p.h"

#include <locale>
#include <string>
#include <string_view>

std::string_view ZyPathText::root(std::string_view path)
{
    if (path.size() > 1 && path[0] == separator && path[1] == separator) {
        return path.substr(0, path.find(separator, 2));
    }
    return path.substr(0, path.find(':') + 1); // no colon: npos + 1 characters, none
}

std::string_view ZyPathText::filename(std::string_view path)
{
    if (endsAsDirectory(path)) {
        path.remove_suffix(1);
    }
    return path.substr(path.rfind(separator) + 1); // no separator: from npos + 1, the start
}

std::string_view ZyPathText::extension(std::string_view filename)
{
    std::size_t const dot = filename.rfind('.');
    if (dot == std::string_view::npos) {
        return {};
    }
    bool const last = dot + 1 == filename.size();
    if (last && (dot == 0 || filename[dot - 1] == '.')) {
        return {};
    }
    return filename.substr(dot);
}

std::string_view ZyPathText::parent(std::string_view path)
{
    std::string_view const name = filename(path);
    if (same(name, root(path))) {
        return path;
    }
    return path.substr(0, path.size() - name.size() - (endsAsDirectory(path) ? 1 : 0));
}

std::string_view ZyPathText::directory(std::string_view path)
{
    return endsAsDirectory(path) ? path : parent(path);
}

bool ZyPathText::same(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && ZyCaseFold::withFold(std::locale(), [&](auto const & fold) {
               return ZyCaseFold::equal(a, b, fold);
           });
}

bool ZyFilePath::isNull() const
{
    return d()->text.isEmpty();
}

bool ZyFilePath::isDirectory() const
{
    return ZyPathText::endsAsDirectory(d()->text.toStdString());
}

bool ZyFilePath::isFile() const
{
    return !isDirectory();
}

bool ZyFilePath::isAbsolute() const
{
    return !ZyPathText::root(d()->text.toStdString()).empty();
}

bool ZyFilePath::isRelative() const
{
    return !isAbsolute();
}

ZyStringView ZyFilePath::rootName() const
{
    return ZyTextAccess::slice(ZyPathText::root(d()->text.toStdString()));
}

ZyStringView ZyFilePath::filename() const
{
    return ZyTextAccess::slice(ZyPathText::filename(d()->text.toStdString()));
}

ZyStringView ZyFilePath::extension() const
{
    return ZyTextAccess::slice(ZyPathText::extension(ZyPathText::filename(d()->text.toStdString())));
}

ZyStringView ZyFilePath::stem() const
{
    std::string_view const name = ZyPathText::filename(d()->text.toStdString());
    return ZyTextAccess::slice(name.substr(0, name.size() - ZyPathText::extension(name).size()));
}

ZyStringView ZyFilePath::parentPath() const
{
    return ZyTextAccess::slice(ZyPathText::parent(d()->text.toStdString()));
}

bool ZyFilePath::isAncestor(ZyFilePath const & other) const
{
    if (*this == other) {
        return true;
    }
    std::string_view const directory = d()->text.toStdString();
    std::string_view const parent = ZyPathText::parent(other.d()->text.toStdString());
    return isDirectory() && ZyPathText::same(parent.substr(0, directory.size()), directory);
}

ZyFilePath ZyFilePath::appended(ZyFilePath const & other) const
{
    std::string_view first = d()->text.toStdString();
    std::string_view const second = other.d()->text.toStdString();
    bool const separated = !second.empty() && second.front() == ZyPathText::separator;
    if (ZyPathText::endsAsDirectory(first)) {
        first.remove_suffix(1);
    }
    std::string joined;
    joined.reserve(first.size() + 1 + second.size());
    joined.append(first);
    if (!separated) {
        joined += ZyPathText::separator;
    }
    return ZyFilePath(joined.append(second));
}
