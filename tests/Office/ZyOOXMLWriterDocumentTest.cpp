// SPDX-License-Identifier: BSD-3-Clause
// The base of a writer of one XML part.
#include <ZyOOXMLWriterDocument.h>

#include "RecordingDevice.h"
#include "ThrowsMessage.h"
#include "VirtualSlot.h"

#include <ZyStringDevice.h>
#include <ZyXMLStreamWriter.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace
{
static_assert(sizeof(ZyOOXMLWriterDocument) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_abstract_v<ZyOOXMLWriterDocument> &&
              std::has_virtual_destructor_v<ZyOOXMLWriterDocument>);

class TestDocument : public ZyOOXMLWriterDocument
{
public:
    using ZyOOXMLWriterDocument::writer;
    using ZyOOXMLWriterDocument::ZyOOXMLWriterDocument;

    static std::size_t slotOfOnClose() { return virtualSlot(&TestDocument::onClose); }

    int closings = 0;

protected:
    void onClose() override
    {
        ++closings;
        writer().startElement("end");
    }
};
} // namespace

#if ZY_SLOTS_VISIBLE
TEST(ZyOOXMLWriterDocument, HasOnCloseBehindTheDestructor)
{
    EXPECT_EQ(TestDocument::slotOfOnClose(), 2u);
}
#endif

TEST(ZyOOXMLWriterDocument, IsAliveUntilClosed)
{
    ZySharedPtr<ZyStringDevice> const device(new ZyStringDevice);
    TestDocument document{ZyWeakPtr<ZyIODevice>(device)};
    EXPECT_TRUE(document.isAlive());
    document.writer().startDocument();
    document.close();
    EXPECT_FALSE(document.isAlive());
    EXPECT_EQ(device->content().toStdString(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><end/>\n");
    EXPECT_EQ(device->mode(), ZyIODevice::Closed);
}

TEST(ZyOOXMLWriterDocument, HasNoWriterWhenClosed)
{
    ZySharedPtr<ZyIODevice> const device(new ZyStringDevice);
    TestDocument document{ZyWeakPtr<ZyIODevice>(device)};
    document.close();
    EXPECT_ZY_THROW(document.writer(), ZyInvalidCallException, "Document writer has no valid device");
}

TEST(ZyOOXMLWriterDocument, ClosesOnce)
{
    ZySharedPtr<ZyIODevice> const device(new ZyStringDevice);
    TestDocument document{ZyWeakPtr<ZyIODevice>(device)};
    document.close();
    document.close();
    EXPECT_EQ(document.closings, 1);
}

TEST(ZyOOXMLWriterDocument, NeedsALivingDevice)
{
    ZyWeakPtr<ZyIODevice> watch;
    {
        ZySharedPtr<ZyIODevice> const device(new ZyStringDevice);
        watch = device;
    }
    EXPECT_ZY_THROW(TestDocument{watch}, ZyNullPointerException, "");
}

TEST(ZyOOXMLWriterDocument, KeepsItsDeviceAlive)
{
    ZySharedPtr<ZyIODevice> device(new ZyStringDevice);
    ZyWeakPtr<ZyIODevice> const watch(device);
    TestDocument document{watch};
    device.reset();
    EXPECT_TRUE(document.isAlive());
    EXPECT_FALSE(watch.expired());
    document.close();
    EXPECT_TRUE(watch.expired());
}

TEST(ZyOOXMLWriterDocument, SharesItsDocumentWithCopies)
{
    ZySharedPtr<ZyStringDevice> const device(new ZyStringDevice);
    ZySharedPtr<ZyStringDevice> const other(new ZyStringDevice);
    TestDocument document{ZyWeakPtr<ZyIODevice>(device)};
    TestDocument copy(document);
    EXPECT_EQ(&copy.writer(), &document.writer());
    TestDocument assigned{ZyWeakPtr<ZyIODevice>(other)};
    assigned = document;
    EXPECT_EQ(&assigned.writer(), &document.writer());
    EXPECT_EQ(other->mode(), ZyIODevice::Closed);
    copy.writer().startElement("a");
    document.close();
    EXPECT_EQ(device->content().toStdString(), "<a><end/></a>\n");
    EXPECT_TRUE(copy.isAlive());
}

TEST(ZyOOXMLWriterDocument, IsNotAliveAfterItWasMoved)
{
    ZySharedPtr<ZyIODevice> const device(new ZyStringDevice);
    TestDocument document{ZyWeakPtr<ZyIODevice>(device)};
    ZyXMLStreamWriter * const writer = &document.writer();
    TestDocument moved(std::move(document));
    EXPECT_EQ(&moved.writer(), writer);
    EXPECT_FALSE(document.isAlive()); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
    document = moved;
    EXPECT_EQ(&document.writer(), writer);
    document = std::move(moved);
    EXPECT_EQ(&document.writer(), writer);
    EXPECT_FALSE(moved.isAlive()); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
}

TEST(ZyOOXMLWriterDocument, IsDestroyedWithoutClosing)
{
    RecordingDevice * const recording = new RecordingDevice;
    ZySharedPtr<ZyIODevice> const device(recording);
    {
        TestDocument document{ZyWeakPtr<ZyIODevice>(device)};
        document.writer().startElement("a");
    }
    EXPECT_EQ(recording->text(), "<a");
    EXPECT_EQ(recording->closed, 1);
}
