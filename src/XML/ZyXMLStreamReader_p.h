// SPDX-License-Identifier: BSD-3-Clause
// The state of the stream reader and of its elements, the bridge from our devices to Qt's reader, and the
// fast road for code of ours that walks a stream.
#pragma once

#include "XML/ZyXMLAttributeSet_p.h"
#include "XML/ZyXMLDeviceBridge_p.h"

#include <ZyIODevice.h>
#include <ZySharedPtr.h>
#include <ZyString.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLStreamElementReader.h>
#include <ZyXMLStreamReader.h>

#include <QStringRef>
#include <QXmlStreamReader>

#include <cstddef>
#include <deque>
#include <exception>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

class ZyXMLStreamReader::Private : public ZyPrivateObject
{
public:
    class MyIODevice;

    Private(ZyIODevice & source, ZySharedPtr<ZyIODevice> && shared);
    ~Private() override;

    TokenType tokenType() const;
    /** Makes the element of the start tag just read, and opens it. */
    std::shared_ptr<ZyXMLStreamElementReader> const & push(ZyXMLStreamReader & reader);
    /** Closes the innermost element; nothing when there is none. */
    void pop();
    void closeAll();
    /** The bytes of the device from \a start to \a end; reading goes on where it was. */
    std::string fragment(qint64 start, qint64 end);

    QXmlStreamReader xml;
    std::deque<std::shared_ptr<ZyXMLStreamElementReader>> open; ///< the innermost element at the front
    std::shared_ptr<MyIODevice> bridge;
    ZyIODevice * device;           ///< never null
    ZySharedPtr<ZyIODevice> owner; ///< of the device; empty when it is borrowed
};

/**
 * Presents a device to Qt's reader.
 *
 * A failure of the device never travels through Qt's code: it is kept, Qt sees the end of the data, and
 * check() throws it after the call.
 */
class ZyXMLStreamReader::Private::MyIODevice : public ZyXMLDeviceBridge
{
public:
    explicit MyIODevice(ZyIODevice & device) : ZyXMLDeviceBridge(device) {}

    bool seek(qint64 position) override;
    /** Throws the failure that was kept, once. */
    void check();

protected:
    qint64 readData(char * data, qint64 maxSize) override;
    qint64 writeData(char const * data, qint64 size) override;

private:
    /** One read of the device, with room for one byte more than is asked for. \return the bytes that have
     * come */
    std::size_t readPiece(char * data, std::size_t room);

    /** Whether a piece, which may be empty, is too short to be shown to Qt. */
    bool mayHoldNoCharacter(std::string_view piece) const;

    std::exception_ptr m_failure;
    bool m_hasBegun = false; ///< Qt has seen bytes since the start
    std::string m_kept;      ///< what has come before the device failed and Qt has not seen
};

class ZyXMLStreamElementReader::Private : public ZyPrivateObject
{
public:
    static constexpr std::size_t closed = std::numeric_limits<std::size_t>::max();

    explicit Private(ZyXMLStreamReader & from);

    ZyXMLStreamReader * reader; ///< never null; looked at while the element is open only
    ZyXMLAttributeReading parsed;
    ZyXMLAttributeSetPtr attributes; ///< made of the parsed ones when they are first asked for
    ZyString name;
    std::shared_ptr<StreamChildren> children; ///< empty until they are first asked for
    std::size_t level = closed;               ///< how many elements stand around this one, while it is open
    bool walked = false;                      ///< its children are being read without the object for them
};

/** The fast road: what can be known about a stream without a search and without a string of ours. */
class ZyXMLStreamAccess
{
public:
    using Stream = ZyXMLStreamReader::Private;         ///< the state of a stream reader
    using Element = ZyXMLStreamElementReader::Private; ///< the state of an element

    static ZyXMLStreamReader::Private & of(ZyXMLStreamReader const & reader) { return *reader.m_d; }
    static ZyXMLStreamElementReader::Private & of(ZyXMLStreamElementReader const & element)
    {
        return *element.m_d;
    }

    /** The stream reader of an element; it may be gone when the element is closed. */
    static ZyXMLStreamReader & reader(ZyXMLStreamElementReader const & element)
    {
        return *of(element).reader;
    }
    /** How many elements are open. */
    static std::size_t depth(ZyXMLStreamReader const & reader) { return of(reader).open.size(); }
    /** Whether the end tag of an element has not been read. */
    static bool isOpen(ZyXMLStreamElementReader const & element)
    {
        return of(element).level != ZyXMLStreamElementReader::Private::closed;
    }
    /** Whether an element is the innermost open one. */
    static bool isActive(ZyXMLStreamElementReader const & element)
    {
        return isOpen(element) && of(element).level + 1 == depth(reader(element));
    }
    /** Notes that an element stands on the stack above \a level others. */
    static void open(ZyXMLStreamElementReader const & element, std::size_t level)
    {
        of(element).level = level;
    }
    /** Notes that an element does not stand on the stack any more. */
    static void close(ZyXMLStreamElementReader const & element)
    {
        of(element).level = ZyXMLStreamElementReader::Private::closed;
    }
    /** The owner of an open element. */
    static std::shared_ptr<ZyXMLStreamElementReader> const & owner(ZyXMLStreamElementReader const & element)
    {
        auto const & open = of(reader(element)).open;
        return open[open.size() - 1 - of(element).level];
    }
    /** The local name of the current start or end tag, valid until the next token is read. */
    static QStringRef localName(ZyXMLStreamReader const & reader) { return of(reader).xml.name(); }
};
