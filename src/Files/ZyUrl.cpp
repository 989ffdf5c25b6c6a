// SPDX-License-Identifier: BSD-3-Clause
// URLs as text: parsed anew by every accessor.
#include <ZyUrl.h>

#include <QString>
#include <QUrl>

#include <utility>

namespace
{
QUrl parsed(ZyString const & text)
{
    return QUrl(text.toQString(), QUrl::TolerantMode);
}
} // namespace

ZyUrl::ZyUrl() = default;

ZyUrl::ZyUrl(ZyUrl const & other) = default;

ZyUrl::ZyUrl(ZyUrl && other) = default;

ZyUrl::ZyUrl(ZyString const & text) : m_text(text) {}

ZyUrl::ZyUrl(ZyString && text) : m_text(std::move(text)) {}

ZyUrl::~ZyUrl() = default;

ZyUrl & ZyUrl::operator=(ZyUrl const & other) = default;

ZyUrl & ZyUrl::operator=(ZyUrl && other) = default;

ZyString const & ZyUrl::toString() const
{
    return m_text;
}

ZyString ZyUrl::scheme() const
{
    return ZyString(parsed(m_text).scheme());
}

ZyString ZyUrl::host() const
{
    return ZyString(parsed(m_text).host(QUrl::FullyDecoded));
}

ZyString ZyUrl::path() const
{
    return ZyString(parsed(m_text).path(QUrl::FullyDecoded));
}

ZyString ZyUrl::filename() const
{
    return ZyString(parsed(m_text).fileName(QUrl::FullyDecoded));
}

ZyString ZyUrl::fragment() const
{
    return ZyString(parsed(m_text).fragment(QUrl::PrettyDecoded));
}
