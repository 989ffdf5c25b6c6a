// SPDX-License-Identifier: BSD-3-Clause
// Comma-separated text onto a device, value by value.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>

class ZyIODevice;
class ZyVariant;

/**
 * Appends values to a device as comma-separated text.
 *
 * \code
 * ZyFile file(path);
 * ZyCSVWriter writer(file); // opens it
 * writer.addValue(1);
 * writer.addValue("two");
 * writer.endLine();         // "1,two" and a line end
 * file.close();
 * \endcode
 *
 * \deliberate{csv-writer-quotes-nothing} Nothing is quoted or escaped: a text with a comma reads back as two fields. A
 * caller who needs quotes puts them into the value.
 *
 * The device is on loan for the writer's life. It is neither flushed nor closed here: close it yourself, and
 * mind what its last write may report.
 *
 * \threads one thread at a time
 */
class ZYCORE_EXPORT ZyCSVWriter
{
public:
    /**
     * Writes to \a device. A closed device is opened for writing; the result of that is not looked at, since
     * the first write on a device that did not open fails anyway. A device that is open for anything but
     * reading is taken as it is.
     *
     * \throws ZyInvalidCallException "Device is in read mode, cannot write to it"
     */
    explicit ZyCSVWriter(ZyIODevice & device);
    ZyCSVWriter(ZyCSVWriter const &) = delete;
    ZyCSVWriter & operator=(ZyCSVWriter const &) = delete;
    virtual ~ZyCSVWriter();

    /**
     * Adds a value to the line under way: one write of its ZyVariant::toString(), with a comma before it
     * unless it is the first of the line.
     *
     * \throws what ZyIODevice::write throws; the value then does not count
     */
    void addValue(ZyVariant const & value);

    /**
     * Ends the line under way by one write of ZyString::NewLine(). A line without values is not ended, so
     * that no blank lines can be written.
     *
     * \throws what ZyIODevice::write throws; the line is then still under way
     */
    void endLine();
    /**
     * Another name of endLine().
     *
     * \deliberate{csv-start-line-ends-a-line} It ends the line under way, if any, so that a new one can start; calling both is
     * harmless.
     */
    void startLine();

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
