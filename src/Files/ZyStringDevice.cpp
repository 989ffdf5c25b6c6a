// SPDX-License-Identifier: BSD-3-Clause
// The string device: a text with two positions.
#include <ZyStringDevice.h>

#include "Core/ZyString_p.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

class ZyStringDevice::Private : public ZyPrivateObject
{
public:
    Private() = default;
    explicit Private(ZyString && text) : content(std::move(text)) {}
    explicit Private(ZyString const & text) : content(text) {}

    /** What the read position has in front of it. */
    std::string_view remaining() const
    {
        std::string_view const text = ZyTextAccess::view(content);
        return text.substr(std::min<std::size_t>(readPosition, text.size()));
    }

    ZyString content;
    unsigned int readPosition = 0;
    unsigned int writePosition = 0; ///< may lie beyond the end after a write with a NUL
};

ZyStringDevice::ZyStringDevice() : m_d(new Private) {}

ZyStringDevice::ZyStringDevice(ZyString && content) : m_d(new Private(std::move(content))) {}

ZyStringDevice::ZyStringDevice(ZyString const & content) : m_d(new Private(content)) {}

ZyStringDevice::ZyStringDevice(char const * content) : m_d(new Private(ZyString(content))) {}

ZyStringDevice::~ZyStringDevice() = default;

ZyString const & ZyStringDevice::content() const
{
    return d()->content;
}

void ZyStringDevice::seek_read(unsigned int position)
{
    d()->readPosition = std::min(position, d()->content.size());
}

void ZyStringDevice::seek_write(unsigned int position)
{
    d()->writePosition = std::min(position, d()->content.size());
}

bool ZyStringDevice::atEnd() const
{
    return (mode() != Read && mode() != ReadWrite) || d()->readPosition >= d()->content.size();
}

bool ZyStringDevice::onOpen(Mode mode)
{
    bool const append = (mode & Append) != 0;
    bool const truncate = (mode & Truncate) != 0;
    bool empties = !append;
    switch (mode & ReadWrite) {
    case ReadWrite:
        d()->readPosition = 0;
        empties = truncate;
        break;
    case Read:
        d()->readPosition = 0;
        return true;
    case Write:
        break;
    default:
        if (!append && !truncate) {
            return true;
        }
    }
    if (empties) {
        d()->content = "";
    }
    d()->writePosition = d()->content.size();
    return true;
}

void ZyStringDevice::onClose() {}

ZyString ZyStringDevice::onRead(unsigned int count)
{
    if (atEnd()) {
        return ZyString();
    }
    std::string_view const piece = d()->remaining().substr(0, count);
    d()->readPosition += static_cast<unsigned int>(piece.size());
    return ZyString(std::string(piece));
}

ZyString ZyStringDevice::onReadAll()
{
    d()->readPosition = d()->content.size();
    return d()->content;
}

ZyString ZyStringDevice::onReadRemaining()
{
    if (d()->readPosition == 0) {
        return onReadAll();
    }
    if (atEnd()) {
        return ZyString();
    }
    ZyString rest{std::string(d()->remaining())};
    d()->readPosition = d()->content.size();
    return rest;
}

ZyString ZyStringDevice::onReadLine(unsigned int maximum)
{
    if (atEnd()) {
        return ZyString();
    }
    std::string_view const remaining = d()->remaining();
    std::size_t const length = std::min(remaining.find('\n'), remaining.size() - 1) + 1;
    bool const cut = maximum != 0 && maximum < length;
    return onRead(cut ? maximum : static_cast<unsigned int>(length));
}

unsigned int ZyStringDevice::onWrite(ZyString const & text)
{
    if (&text == &d()->content) {
        return ZyStringDevice::onWrite(ZyString(text)); // it is about to change
    }
    std::string & content = d()->content.toStdString();
    std::string_view const piece = ZyTextAccess::view(text);
    if (d()->writePosition == content.size()) {
        content.append(piece);
        d()->writePosition += static_cast<unsigned int>(piece.size());
        return static_cast<unsigned int>(piece.size());
    }
    std::size_t const position = std::min<std::size_t>(d()->writePosition, content.size());
    std::size_t const covered = std::min(piece.size(), content.size() - position);
    std::string_view const over = piece.substr(0, covered);
    content.replace(position, covered, over.substr(0, over.find('\0')));
    content.append(piece.substr(covered));
    d()->writePosition += static_cast<unsigned int>(piece.size());
    return static_cast<unsigned int>(piece.size());
}
