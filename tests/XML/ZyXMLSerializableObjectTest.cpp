// SPDX-License-Identifier: BSD-3-Clause
// Objects that are an element by themselves.
#include <ZyXMLSerializableObject.h>

#include "ThrowsMessage.h"
#include "VirtualSlot.h"
#include "XmlLoad.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

static_assert(sizeof(ZyXMLSerializableObject) == sizeof(void *), "virtual table pointer only");
static_assert(std::is_abstract_v<ZyXMLSerializableObject> &&
              std::has_virtual_destructor_v<ZyXMLSerializableObject>);

namespace
{
class Gauge : public ZyXMLSerializableObject
{
public:
    ZyString xmlElementName() const override { return "Gauge"; }

    // Public, for their places to be looked at.
    void onWriteXMLAttributes(ZyXMLElementWriter & element) const override
    {
        element.writeAttribute("unit", "V");
    }
    void onWriteXMLContent(ZyXMLElementWriter & element) const override
    {
        element.createElement("Value")->writeText("5");
    }
};
} // namespace

#if ZY_SLOTS_VISIBLE
TEST(ZyXMLSerializableObject, HasItsOperationsInTheToldOrder)
{
    using O = ZyXMLSerializableObject;
    EXPECT_EQ(virtualSlot(&O::readXML), 2u);
    EXPECT_EQ(virtualSlot(static_cast<void (O::*)(ZyXMLStreamWriter &) const>(&O::writeXML)), 3u);
    EXPECT_EQ(virtualSlot(static_cast<void (O::*)(ZyXMLElementWriter &) const>(&O::writeXML)), 4u);
    EXPECT_EQ(virtualSlot(&O::xmlElementName), 5u);
    EXPECT_EQ(virtualSlot(&Gauge::onWriteXMLAttributes), 6u);
    EXPECT_EQ(virtualSlot(&Gauge::onWriteXMLContent), 7u);
}
#endif

TEST(ZyXMLSerializableObject, WritesItselfAsADocument)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    Gauge().writeXML(writer);
    writer.finishDocument();
    EXPECT_EQ(device.content().toStdString(), "<Gauge unit=\"V\"><Value>5</Value></Gauge>\n");
}

TEST(ZyXMLSerializableObject, WritesItselfAsAChild)
{
    EXPECT_EQ(
        writtenDocument([](ZyXMLElementWriter & root) {
            Gauge().writeXML(root);
            Gauge().writeXML(root);
        }),
        "<r><Gauge unit=\"V\"><Value>5</Value></Gauge><Gauge unit=\"V\"><Value>5</Value></Gauge></r>\n");
}

TEST(ZyXMLSerializableObject, ReadsNothingUnlessItIsReplaced)
{
    ZyStringDevice device("<Gauge unit='A'><Value>7</Value></Gauge>");
    ZyXMLStreamReader reader(device);
    Gauge gauge;
    gauge.readXML(*reader.nextElement());
    EXPECT_EQ(reader.tokenType(), ZyXMLStreamReader::StartElement);
}
