// SPDX-License-Identifier: BSD-3-Clause
// Comma-separated text onto a device.
#include <ZyCSVWriter.h>

#include <ZyException.h>
#include <ZyIODevice.h>
#include <ZyRef.h>
#include <ZyString.h>
#include <ZyVariant.h>

#include "Core/ZyNumberText_p.h"

#include <string>

class ZyCSVWriter::Private : public ZyPrivateObject
{
public:
    explicit Private(ZyIODevice & target) : device(target) {}

    unsigned int lines = 0;  ///< ended so far
    unsigned int values = 0; ///< in the line under way
    ZyRef<ZyIODevice> device;
    ZyString text; ///< of the write under way; kept for its memory
};

namespace
{
template <class N>
void appendNumber(std::string & text, N number)
{
    char digits[ZyNumberText::room];
    text.append(digits, ZyNumberText::write(digits, number));
}

/** Appends the text that ZyVariant::toString() gives, for the frequent kinds without a string of its own. */
void appendValue(std::string & text, ZyVariant const & value)
{
    switch (value.type()) {
    case ZyVariant::Integer:
        appendNumber(text, value.asInteger());
        break;
    case ZyVariant::Double:
        appendNumber(text, value.asDouble());
        break;
    case ZyVariant::String:
        text += value.asString().toStdString();
        break;
    default:
        text += value.toString().toStdString();
    }
}
} // namespace

ZyCSVWriter::ZyCSVWriter(ZyIODevice & device) : m_d(new Private(device))
{
    if (device.mode() == ZyIODevice::Closed) {
        device.open(ZyIODevice::Write);
    } else if (device.mode() == ZyIODevice::Read) {
        throw ZyInvalidCallException("Device is in read mode, cannot write to it");
    }
}

ZyCSVWriter::~ZyCSVWriter() = default;

void ZyCSVWriter::addValue(ZyVariant const & value)
{
    std::string & text = d()->text.toStdString();
    text.assign(d()->values > 0 ? 1 : 0, ',');
    appendValue(text, value);
    d()->device->write(d()->text);
    ++d()->values;
}

void ZyCSVWriter::endLine()
{
    if (d()->values > 0) {
        d()->device->write(ZyString::NewLine());
        d()->values = 0;
        ++d()->lines;
    }
}

void ZyCSVWriter::startLine()
{
    endLine();
}
