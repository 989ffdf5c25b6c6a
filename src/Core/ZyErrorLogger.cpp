// SPDX-License-Identifier: BSD-3-Clause
// A collector of errors and warnings.
#include <ZyErrorLogger.h>

#include <QDebug>
#include <QMessageLogger>
#include <QString>

class ZyErrorLogger::Private : public ZyPrivateObject
{
public:
    ZyVector<ZyString> errors;
    ZyVector<ZyString> warnings;
};

ZyErrorLogger::ZyErrorLogger() : m_d(new Private) {}

ZyErrorLogger::~ZyErrorLogger() = default;

void ZyErrorLogger::error(ZyString const & text)
{
    d()->errors.add(text);
    debugMessage(text);
}

void ZyErrorLogger::warning(ZyString const & text)
{
    d()->warnings.add(text);
    debugMessage(text);
}

void ZyErrorLogger::debugMessage(ZyString const & text)
{
    QMessageLogger().debug() << text.toQString();
}

bool ZyErrorLogger::hasErrors() const
{
    return !d()->errors.isEmpty();
}

bool ZyErrorLogger::hasWarnings() const
{
    return !d()->warnings.isEmpty();
}

ZyVector<ZyString> const & ZyErrorLogger::errors() const
{
    return d()->errors;
}

ZyVector<ZyString> const & ZyErrorLogger::warnings() const
{
    return d()->warnings;
}
