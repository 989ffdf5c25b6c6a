// SPDX-License-Identifier: BSD-3-Clause
// Paths of elements, and the exception that is told by one.
#include <ZyXMLPath.h>

#include <ZyCaseSensitiveString.h>
#include <ZyException.h>

#include <string>
#include <utility>

class ZyXMLPath::Private : public ZyPrivateObject
{
public:
    Private() = default;
    explicit Private(ZyString const & path) : text(path) {}
    explicit Private(ZyCaseSensitiveString && path) : text(std::move(path)) {}

    ZyCaseSensitiveString text; ///< without a "/" at either end
};

ZyXMLPath::ZyXMLPath() : m_d(new Private) {}

ZyXMLPath::ZyXMLPath(char const * path) : m_d(new Private(ZyString(path))) {}

ZyXMLPath::ZyXMLPath(ZyString const & path) : m_d(new Private(path)) {}

ZyXMLPath::ZyXMLPath(std::initializer_list<ZyString> names) : m_d(new Private)
{
    std::string & text = d()->text.toStdString();
    char const * separator = "";
    for (ZyString const & name : names) {
        text.append(separator).append(name.toStdString());
        separator = "/";
    }
}

ZyXMLPath::ZyXMLPath(ZyXMLPath const & other) : ZyPrivateObject(other), m_d(new Private(other.d()->text)) {}

ZyXMLPath::ZyXMLPath(ZyXMLPath && other) : m_d(new Private(std::move(other.d()->text))) {}

ZyXMLPath::~ZyXMLPath() = default;

ZyXMLPath & ZyXMLPath::operator=(ZyXMLPath const & other)
{
    d()->text = other.d()->text;
    return *this;
}

ZyXMLPath & ZyXMLPath::operator=(ZyXMLPath && other)
{
    d()->text = std::move(other.d()->text);
    return *this;
}

ZyString const & ZyXMLPath::toString() const
{
    return d()->text;
}

ZyXMLPath & ZyXMLPath::push(ZyString const & name)
{
    std::string & text = d()->text.toStdString();
    // A new text, since the name may be the old one.
    std::string pushed = text.empty() ? std::string() : text + '/';
    pushed += name.toStdString();
    text = std::move(pushed);
    return *this;
}

ZyXMLPath ZyXMLPath::pushed(ZyString const & name) const
{
    ZyXMLPath path(*this);
    path.push(name);
    return path;
}

bool ZyXMLPath::operator==(ZyXMLPath const & other) const
{
    return d()->text == other.d()->text;
}

bool ZyXMLPath::operator!=(ZyXMLPath const & other) const
{
    return !(*this == other);
}

bool ZyXMLPath::operator<(ZyXMLPath const & other) const
{
    return d()->text < other.d()->text;
}

ZyXMLDuplicateRuleException::ZyXMLDuplicateRuleException(ZyXMLPath const & path)
    : ZyXMLException("Duplicate rule for XML path: " + path.toString())
{}
