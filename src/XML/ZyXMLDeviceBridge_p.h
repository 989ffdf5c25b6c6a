// SPDX-License-Identifier: BSD-3-Clause
// What the bridges from Qt's XML classes to our devices share.
#pragma once

#include <QIODevice>

class ZyIODevice;

/** A device of ours as one of Qt's; how bytes pass is told in derived classes. */
class ZyXMLDeviceBridge : public QIODevice
{
public:
    explicit ZyXMLDeviceBridge(ZyIODevice & device) : m_device(&device) {}

    /** Opens both. Only plain modes are known: with any flag added our device stays as it is, and the result
     * is false. */
    bool open(OpenMode mode) override;

protected:
    ZyIODevice & device() const { return *m_device; }

private:
    ZyIODevice * m_device; ///< never null
};
