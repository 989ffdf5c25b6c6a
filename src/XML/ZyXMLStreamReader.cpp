// SPDX-License-Identifier: BSD-3-Clause
// The XML stream reader: Qt's reader behind a bridge from our devices, and the stack of open elements.
#include <ZyXMLStreamReader.h>

#include "XML/ZyXMLAttributeSet_p.h"
#include "XML/ZyXMLStreamReader_p.h"

#include <ZyException.h>
#include <ZyFileDevice.h>
#include <ZyFilePath.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

ZyXMLStreamReader::Private::Private(ZyIODevice & source, ZySharedPtr<ZyIODevice> && shared)
    : bridge(std::make_shared<MyIODevice>(source)), device(&source), owner(std::move(shared))
{
    bridge->open(QIODevice::ReadOnly);
    xml.setDevice(bridge.get());
}

ZyXMLStreamReader::Private::~Private()
{
    closeAll();
}

ZyXMLStreamReader::TokenType ZyXMLStreamReader::Private::tokenType() const
{
    QXmlStreamReader::TokenType const token = xml.tokenType();
    return token <= QXmlStreamReader::EntityReference ? static_cast<TokenType>(token) : Other;
}

std::shared_ptr<ZyXMLStreamElementReader> const & ZyXMLStreamReader::Private::push(ZyXMLStreamReader & reader)
{
    open.push_front(std::make_shared<ZyXMLStreamElementReader>(&reader));
    ZyXMLStreamAccess::open(*open.front(), open.size() - 1);
    return open.front();
}

void ZyXMLStreamReader::Private::pop()
{
    if (!open.empty()) {
        ZyXMLStreamAccess::close(*open.front());
        open.pop_front();
    }
}

void ZyXMLStreamReader::Private::closeAll()
{
    while (!open.empty()) {
        pop();
    }
}

bool ZyXMLStreamReader::Private::MyIODevice::seek(qint64 position)
{
    QIODevice::seek(position);
    m_kept.clear();
    m_hasBegun = position != 0;
    try {
        device().seek_read(static_cast<unsigned int>(position));
    } catch (...) {
        m_failure = std::current_exception();
    }
    return true;
}

void ZyXMLStreamReader::Private::MyIODevice::check()
{
    if (m_failure) {
        std::rethrow_exception(std::exchange(m_failure, nullptr));
    }
}

/**
 * Asks for one byte less than there is room for, as for a C text, and passes on the size of what has come.
 *
 * A piece of which Qt can make no character would be taken for the end: it is filled up. When the device
 * fails meanwhile, what has come is kept for the next call.
 *
 * \deliberate{bridge-cuts-at-nul} What stands behind a NUL is lost: Qt sees NULs in its place.
 */
qint64 ZyXMLStreamReader::Private::MyIODevice::readData(char * data, qint64 maxSize)
{
    if (maxSize <= 1) {
        return 0;
    }
    auto const room = static_cast<std::size_t>(maxSize);
    std::size_t size = m_kept.copy(data, room - 1);
    m_kept.erase(0, size);
    try {
        bool more = true;
        while (more && size + 1 < room && mayHoldNoCharacter(std::string_view(data, size))) {
            std::size_t const added = readPiece(data + size, room - size);
            size += added;
            more = added > 0;
        }
    } catch (...) {
        m_kept.insert(0, data, size);
        m_failure = std::current_exception();
        return -1;
    }
    m_hasBegun = m_hasBegun || size > 0;
    return static_cast<qint64>(size);
}

bool ZyXMLStreamReader::Private::MyIODevice::mayHoldNoCharacter(std::string_view piece) const
{
    constexpr std::size_t first = 4;   // Qt finds the encoding by so many
    constexpr std::size_t longest = 8; // a byte order mark and a character
    return (!m_hasBegun && piece.size() < first) ||
           (piece.size() < longest &&
            std::all_of(piece.begin(), piece.end(), [](char c) { return (c & 0x80) != 0; }));
}

std::size_t ZyXMLStreamReader::Private::MyIODevice::readPiece(char * data, std::size_t room)
{
    std::size_t const most = std::min<std::size_t>(room - 1, std::numeric_limits<unsigned int>::max());
    std::string const piece = std::move(device().read(static_cast<unsigned int>(most)).toStdString());
    std::size_t const size = std::min(piece.size(), room);
    std::size_t const text = std::min(piece.find('\0'), size);
    std::memcpy(data, piece.data(), text);
    std::memset(data + text, 0, size - text);
    return size;
}

qint64 ZyXMLStreamReader::Private::MyIODevice::writeData(char const *, qint64)
{
    return -1;
}

ZyXMLStreamReader::ZyXMLStreamReader(ZyIODevice & device)
    : m_d(new Private(device, ZySharedPtr<ZyIODevice>()))
{}

ZyXMLStreamReader::ZyXMLStreamReader(ZySharedPtr<ZyIODevice> device)
    : m_d(new Private(*device, std::move(device)))
{}

ZyXMLStreamReader::ZyXMLStreamReader(ZyFilePath const & file)
    : ZyXMLStreamReader(ZySharedPtr<ZyIODevice>(new ZyFileDevice(file)))
{}

ZyXMLStreamReader::~ZyXMLStreamReader() = default;

ZyXMLStreamReader::TokenType ZyXMLStreamReader::next()
{
    QXmlStreamReader::TokenType const token = d()->xml.readNext();
    d()->bridge->check();
    switch (token) {
    case QXmlStreamReader::Invalid:
        throw ZyInvalidXMLException(errorString());
    case QXmlStreamReader::EndDocument:
        d()->closeAll();
        break;
    case QXmlStreamReader::StartElement:
        d()->push(*this);
        break;
    case QXmlStreamReader::EndElement:
        d()->pop();
        break;
    default:
        break;
    }
    return tokenType();
}

ZyXMLStreamReader::TokenType ZyXMLStreamReader::tokenType() const
{
    return d()->tokenType();
}

std::shared_ptr<ZyXMLStreamElementReader> ZyXMLStreamReader::nextElement()
{
    constexpr unsigned int most = 10000000;
    for (unsigned int passes = 0; passes <= most; ++passes) {
        switch (next()) {
        case Invalid:
        case EndDocument:
            return nullptr;
        case StartElement:
            return currentElement();
        default:
            break;
        }
    }
    return nullptr;
}

std::shared_ptr<ZyXMLStreamElementReader> ZyXMLStreamReader::nextElementInElement()
{
    bool const found = d()->xml.readNextStartElement();
    d()->bridge->check();
    if (found) {
        return d()->push(*this);
    }
    d()->pop();
    return nullptr;
}

std::shared_ptr<ZyXMLStreamElementReader> ZyXMLStreamReader::scan(ZyString const & name)
{
    std::shared_ptr<ZyXMLStreamElementReader> element = nextElement();
    while (element && element->name() != name) {
        element = nextElement();
    }
    return element;
}

std::shared_ptr<ZyXMLStreamElementReader> ZyXMLStreamReader::currentElement() const
{
    if (d()->open.empty()) {
        throw ZyNullXMLStreamElementException();
    }
    return d()->open.front();
}

std::shared_ptr<ZyXMLStreamElementReader>
ZyXMLStreamReader::getSharedPointer(ZyXMLStreamElementReader const * element) const
{
    for (std::shared_ptr<ZyXMLStreamElementReader> const & open : d()->open) {
        if (open.get() == element) {
            return open;
        }
    }
    throw ZyNullXMLStreamElementException();
}

bool ZyXMLStreamReader::isActive(ZyXMLStreamElementReader const * element) const
{
    return !d()->open.empty() && d()->open.front().get() == element;
}

bool ZyXMLStreamReader::isValid(ZyXMLStreamElementReader const * element) const
{
    return std::any_of(d()->open.begin(), d()->open.end(),
                       [&](auto const & open) { return open.get() == element; });
}

bool ZyXMLStreamReader::isValid(std::shared_ptr<ZyXMLStreamElementReader> const & element) const
{
    return isValid(element.get());
}

ZyXMLAttributeSetPtr ZyXMLStreamReader::attributes() const
{
    auto set = std::make_shared<ZyXMLAttributeSet>();
    ZyXMLAttributeReading(d()->xml.attributes()).fill(*set);
    return ZyXMLAttributeSetPtr(std::move(set));
}

ZyString ZyXMLStreamReader::elementName() const
{
    return ZyString(d()->xml.name());
}

ZyString ZyXMLStreamReader::readText()
{
    if (d()->open.empty()) {
        throw ZyInvalidXMLOperation("ReadText called outside of element");
    }
    std::shared_ptr<ZyXMLStreamElementReader> const element = d()->open.front();
    while (ZyXMLStreamAccess::isOpen(*element)) {
        if (tokenType() == Characters && ZyXMLStreamAccess::isActive(*element)) {
            return ZyString(d()->xml.text());
        }
        next();
    }
    return ZyString();
}

ZyString ZyXMLStreamReader::errorString() const
{
    return ZyString(d()->xml.errorString());
}

void ZyXMLStreamReader::restart()
{
    d()->bridge->seek(0);
    d()->xml.setDevice(d()->bridge.get());
    d()->closeAll();
    d()->bridge->check();
}
