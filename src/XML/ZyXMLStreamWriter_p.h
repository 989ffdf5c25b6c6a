// SPDX-License-Identifier: BSD-3-Clause
// The state of the stream writer, the bridge from Qt's writer to our devices, and the fast road for writers
// of tables that have their markup ready.
#pragma once

#include "XML/ZyXMLDeviceBridge_p.h"

#include <ZyIODevice.h>
#include <ZyString.h>
#include <ZyXMLStreamWriter.h>

#include <QString>
#include <QXmlStreamWriter>

#include <array>
#include <deque>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

class ZyXMLStreamWriter::Private : public ZyPrivateObject
{
public:
    class MyIODevice;

    /** What has been written last; decides where attributes and text may stand. */
    enum State : unsigned int {
        Nothing = 0,
        Declared = 1,
        TagOpen = 2,
        InElement = 3,
        NoElement = 4,
        Finished = 5
    };

    Private(ZyIODevice & target, ZySharedPtr<ZyIODevice> && shared,
            AutoFormattingSettings const & formatting);
    ~Private() override;

    /** Calls Qt's writer, and throws when the device has failed. */
    template <class Call>
    void write(Call const & call);
    void checkDevice();
    void startElement(ZyString const & name, ZyString const * namespaceUri,
                      ZyXMLStreamElementWriter * element);
    void checkAttribute(ZyString const & name) const;
    /** Closes the innermost element; a failure of the device waits in the bridge. */
    void closeInnermost();
    /** Closes everything down to and including \a element, as closeInnermost does. */
    void close(ZyXMLStreamElementWriter const * element);
    /** How many elements stand on the stack down to the outermost one of \a element; 0 when it is not there.
     */
    std::size_t depthOf(ZyXMLStreamElementWriter const * element) const;
    void disableAll();
    /** A name for Qt; names repeat, and their last conversions are kept. */
    QString name(ZyString const & text);

    std::shared_ptr<MyIODevice> bridge;
    ZyIODevice * device;           ///< never null
    ZySharedPtr<ZyIODevice> owner; ///< of the device; empty when it is borrowed
    QXmlStreamWriter xml;
    std::deque<ZyXMLStreamElementWriter *> open; ///< newest at the front; null: an element without a writer
    unsigned int state = Nothing;

private:
    struct Name
    {
        std::string bytes;
        QString text;
    };
    std::array<Name, 32> m_names;
};

/**
 * Presents a device to Qt's writer.
 *
 * The first piece goes straight to the device, so that one that cannot be written fails at once; then pieces
 * are collected. A failure never travels through Qt's code: it is kept, everything behind it is dropped, and
 * check() throws it after the call.
 */
class ZyXMLStreamWriter::Private::MyIODevice : public ZyXMLDeviceBridge
{
public:
    explicit MyIODevice(ZyIODevice & device) : ZyXMLDeviceBridge(device) {}

    /** Where markup is collected; whoever appends calls collected() next. */
    std::string & text() { return m_collected.toStdString(); }
    void collected();
    void flush();
    void check();
    bool hasReported() const { return m_reported; }

protected:
    qint64 readData(char * data, qint64 maxSize) override;
    qint64 writeData(char const * data, qint64 size) override;

private:
    void fail();

    ZyString m_collected;
    std::exception_ptr m_failure;
    bool m_straight = true;  ///< nothing has reached the device yet
    bool m_reported = false; ///< the failure has been thrown to a caller
};

/**
 * The road past Qt for writers that make their markup themselves.
 *
 * Between begin() and end() complete child elements of the innermost open element may be appended,
 * well-formed and escaped (ZyXMLText). Afterwards the writer stands as after a closed child. Output is not
 * formatted here.
 */
class ZyXMLMarkup
{
public:
    /** Closes the start tag that is open and gives the text to append to. */
    static std::string & Begin(ZyXMLStreamWriter & writer);
    /** \throws what the device has thrown */
    static void End(ZyXMLStreamWriter & writer);
    /** Hands everything collected to the device, so that something else may be written to it directly. */
    static void Flush(ZyXMLStreamWriter & writer);
    /** True when the device has failed and a caller knows it: what is left to write is lost and need not be
     * reported. */
    static bool HasReportedFailure(ZyXMLStreamWriter const & writer);
};
