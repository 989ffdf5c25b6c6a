// SPDX-License-Identifier: BSD-3-Clause
// Paths from and to wide text and the standard library's paths.
#include <ZyFilePath.h>

#include "Core/ZyUtf8_p.h"
#include "Files/ZyFilePath_p.h"
#include "Platform/NativePath.h"

#include <keelbase/Keelbase.h>

#include <string_view>

// The wide text never goes through the standard path type: where that is narrow, it refuses what is not
// ASCII.
ZyFilePath::ZyFilePath(wchar_t const * path)
    : m_d(Private::Normal(ZyUtf8::fromWide(path ? std::wstring_view(path) : std::wstring_view())))
{}

ZyFilePath::ZyFilePath(std::wstring const & path) : m_d(Private::Normal(ZyUtf8::fromWide(path))) {}

ZyFilePath::ZyFilePath(std::filesystem::path const & path) : m_d(Private::Normal(NativePath::textOf(path))) {}

ZyFilePath::ZyFilePath(std::filesystem::path && path) : m_d(Private::Normal(NativePath::textOf(path))) {}

std::wstring ZyFilePath::toWString() const
{
    ZyString trimmed(d()->text);
    return UTFString(trimmed.trim().c_str()).getWide();
}
