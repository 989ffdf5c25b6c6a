// SPDX-License-Identifier: BSD-3-Clause
// The frame of the devices: modes, errors, and reading as it comes to a class that has only the pure hooks.
#include <ZyIODevice.h>

#include "ThrowsMessage.h"
#include "VirtualSlot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <type_traits>
#include <vector>

static_assert(ZyIODevice::Closed == 0 && ZyIODevice::Read == 1 && ZyIODevice::Write == 2);
static_assert(ZyIODevice::ReadWrite == 3 && ZyIODevice::Append == 4);
static_assert(ZyIODevice::Truncate == 8 && ZyIODevice::Text == 16);
static_assert(std::is_same_v<std::underlying_type_t<ZyIODevice::Mode>, int>);
static_assert((ZyIODevice::Write | ZyIODevice::Truncate) == 10);
static_assert(std::is_same_v<decltype(ZyIODevice::Write | ZyIODevice::Truncate), ZyIODevice::Mode>);
static_assert(std::is_abstract_v<ZyIODevice> && std::has_virtual_destructor_v<ZyIODevice>);
static_assert(sizeof(ZyIODevice) == 2 * sizeof(void *) + sizeof(ZyString), "table, mode, error");
static_assert(std::is_base_of_v<ZyException, ZyIODevice::CannotOpenException>);

namespace
{
// A device over a text that writes down which hooks were called.
class Probe : public ZyIODevice
{
public:
    Probe() = default;
    explicit Probe(std::string const & text) : content(text) {}

    void seek_read(unsigned int position) override
    {
        calls.push_back("seek_read " + std::to_string(position));
        at = position;
    }
    void seek_write(unsigned int position) override
    {
        calls.push_back("seek_write " + std::to_string(position));
    }
    bool atEnd() const override { return at >= content.size(); }

    using ZyIODevice::onClose;
    using ZyIODevice::onOpen;
    using ZyIODevice::onRead;
    using ZyIODevice::onReadAll;
    using ZyIODevice::onReadLine;
    using ZyIODevice::onReadRemaining;
    using ZyIODevice::onWrite;
    using ZyIODevice::setError;

    void onClose() override { calls.push_back("close in mode " + std::to_string(mode())); }
    bool onOpen(Mode mode) override
    {
        calls.push_back("open " + std::to_string(mode) + " in mode " + std::to_string(this->mode()));
        if (throws) {
            throw ZyIOException("no");
        }
        return opens;
    }
    ZyString onRead(unsigned int count) override
    {
        calls.push_back("read " + std::to_string(count));
        std::string const piece = content.substr(std::min<std::size_t>(at, content.size()), count);
        at += piece.size();
        return piece;
    }
    unsigned int onWrite(ZyString const & text) override { return std::min(accepts, text.size()); }

    std::string content;
    std::size_t at = 0;
    bool opens = true;
    bool throws = false;
    unsigned int accepts = ~0u;
    std::vector<std::string> calls;
};
} // namespace

TEST(ZyIODevice, VirtualOperationsHaveTheirOrder)
{
    struct Names : ZyIODevice
    {
        static std::vector<std::size_t> slots()
        {
            return {virtualSlot(&ZyIODevice::seek_read), virtualSlot(&ZyIODevice::seek_write),
                    virtualSlot(&Names::onReadAll),      virtualSlot(&Names::onReadRemaining),
                    virtualSlot(&Names::onReadLine),     virtualSlot(&ZyIODevice::atEnd),
                    virtualSlot(&Names::onClose),        virtualSlot(&Names::onOpen),
                    virtualSlot(&Names::onRead),         virtualSlot(&Names::onWrite)};
        }
    };
    EXPECT_EQ(Names::slots(), (std::vector<std::size_t>{2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
}

TEST(ZyIODevice, StartsClosedWithoutAnError)
{
    Probe device;
    EXPECT_EQ(device.mode(), ZyIODevice::Closed);
    EXPECT_EQ(device.lastError().toStdString(), "");
}

TEST(ZyIODevice, Deliberate_device_has_error)
{
    Probe device;
    EXPECT_TRUE(device.hasError());
    device.setError("something");
    EXPECT_FALSE(device.hasError());
}

TEST(ZyIODevice, OpensInExactlyTheGivenMode)
{
    Probe device;
    EXPECT_TRUE(device.open(ZyIODevice::Mode(29)));
    EXPECT_EQ(device.mode(), 29);
    EXPECT_EQ(device.calls, std::vector<std::string>{"open 29 in mode 0"});
}

TEST(ZyIODevice, SaysWhenItIsOpenAlready)
{
    Probe device;
    EXPECT_TRUE(device.open(ZyIODevice::Read));
    EXPECT_FALSE(device.open(ZyIODevice::Write));
    EXPECT_EQ(device.mode(), ZyIODevice::Read);
    EXPECT_EQ(device.lastError().toStdString(), "Device already open");
    EXPECT_EQ(device.calls.size(), 1u);
}

TEST(ZyIODevice, StaysClosedWhenTheHookFails)
{
    Probe device;
    device.opens = false;
    EXPECT_FALSE(device.open(ZyIODevice::Read));
    EXPECT_EQ(device.mode(), ZyIODevice::Closed);
    EXPECT_EQ(device.lastError().toStdString(), "");
    device.throws = true;
    EXPECT_ZY_THROW(device.open(ZyIODevice::Read), ZyIOException, "no");
    EXPECT_EQ(device.mode(), ZyIODevice::Closed);
}

TEST(ZyIODevice, ClosesOnceAndWithTheModeGone)
{
    Probe device;
    device.close();
    EXPECT_TRUE(device.calls.empty());
    device.open(ZyIODevice::Read);
    device.close();
    device.close();
    EXPECT_EQ(device.calls, (std::vector<std::string>{"open 1 in mode 0", "close in mode 0"}));
    EXPECT_TRUE(device.open(ZyIODevice::Write));
}

TEST(ZyIODevice, ReadsInTheModesThatReadOnly)
{
    for (int mode : {0, 2, 4, 5, 7, 8, 9, 11, 16, 17, 19}) {
        SCOPED_TRACE(mode);
        Probe device("text");
        device.open(ZyIODevice::Mode(mode));
        EXPECT_ZY_THROW(device.read(1), ZyIOInvalidReadException, "");
        EXPECT_ZY_THROW(device.readAll(), ZyIOInvalidReadException, "");
        EXPECT_ZY_THROW(device.readRemaining(), ZyIOInvalidReadException, "");
        EXPECT_ZY_THROW(device.readLine(0), ZyIOInvalidReadException, "");
        EXPECT_EQ(device.calls.size(), 1u);
    }
    for (int mode : {1, 3}) {
        Probe device("text");
        device.open(ZyIODevice::Mode(mode));
        EXPECT_EQ(device.read(2).toStdString(), "te");
    }
}

TEST(ZyIODevice, WritesInTheModesThatWriteOnly)
{
    for (int mode : {0, 1, 5, 6, 7, 8, 9, 10, 11, 12, 16, 18, 19, 20}) {
        SCOPED_TRACE(mode);
        Probe device;
        device.open(ZyIODevice::Mode(mode));
        EXPECT_ZY_THROW(device.write("x"), ZyIOInvalidWriteException, "");
    }
    for (int mode : {2, 3, 4}) {
        Probe device;
        device.open(ZyIODevice::Mode(mode));
        EXPECT_EQ(device.write("abc"), 3u);
    }
}

TEST(ZyIODevice, Deliberate_mode_with_flag_refuses)
{
    Probe device("text");
    device.open(ZyIODevice::Write | ZyIODevice::Truncate);
    EXPECT_ZY_THROW(device.write("x"), ZyIOInvalidWriteException, "");
    Probe reader("text");
    reader.open(ZyIODevice::Read | ZyIODevice::Text);
    EXPECT_ZY_THROW(reader.read(1), ZyIOInvalidReadException, "");
}

TEST(ZyIODevice, ShortWriteIsToldAndNotThrown)
{
    Probe device;
    device.open(ZyIODevice::Write);
    device.accepts = 3;
    EXPECT_EQ(device.write("abcdefgh"), 3u);
    EXPECT_EQ(device.lastError().toStdString(), "5 bytes were not written");
    EXPECT_EQ(device.write("abc"), 3u);
    device.close();
    EXPECT_EQ(device.lastError().toStdString(), "5 bytes were not written");
}

TEST(ZyIODevice, Deliberate_last_error_stays)
{
    Probe device;
    device.open(ZyIODevice::Read);
    device.open(ZyIODevice::Read);
    device.close();
    EXPECT_TRUE(device.open(ZyIODevice::Write));
    EXPECT_EQ(device.write("abc"), 3u);
    device.close();
    EXPECT_EQ(device.lastError().toStdString(), "Device already open");
}

TEST(ZyIODevice, RemainderComesInPiecesOf128Bytes)
{
    Probe device(std::string(300, 'x'));
    device.open(ZyIODevice::Read);
    device.calls.clear();
    EXPECT_EQ(device.readRemaining().toStdString(), std::string(300, 'x'));
    EXPECT_EQ(device.calls, (std::vector<std::string>{"read 128", "read 128", "read 128"}));
}

TEST(ZyIODevice, RemainderOfAnEmptySourceAsksOnce)
{
    Probe device;
    device.open(ZyIODevice::Read);
    device.calls.clear();
    EXPECT_EQ(device.readRemaining().toStdString(), "");
    EXPECT_EQ(device.calls, std::vector<std::string>{"read 128"});
}

TEST(ZyIODevice, AllIsTheRemainderFromTheStart)
{
    Probe device("abc");
    device.open(ZyIODevice::Read);
    device.read(2);
    device.calls.clear();
    EXPECT_EQ(device.readAll().toStdString(), "abc");
    EXPECT_EQ(device.calls, (std::vector<std::string>{"seek_read 0", "read 128"}));
}

TEST(ZyIODevice, LineComesByteByByte)
{
    Probe device("ab\r\n\ncd");
    device.open(ZyIODevice::Read);
    device.calls.clear();
    EXPECT_EQ(device.readLine(0).toStdString(), "ab\r\n");
    EXPECT_EQ(device.calls, std::vector<std::string>(4, "read 1"));
    EXPECT_EQ(device.readLine(0).toStdString(), "\n");
    EXPECT_EQ(device.readLine(0).toStdString(), "cd");
    EXPECT_EQ(device.readLine(0).toStdString(), "");
}

TEST(ZyIODevice, LineHasAMaximum)
{
    Probe device("abcdef\n");
    device.open(ZyIODevice::Read);
    EXPECT_EQ(device.readLine(3).toStdString(), "abc");
    EXPECT_EQ(device.readLine(4).toStdString(), "def\n");
}

TEST(ZyIODevice, RestartMovesBothPositions)
{
    Probe device;
    device.restart();
    EXPECT_EQ(device.calls, (std::vector<std::string>{"seek_read 0", "seek_write 0"}));
}

TEST(ZyIODevice, CopiesModeAndErrorOnly)
{
    struct Bare : ZyIODevice
    {
        void seek_read(unsigned int) override {}
        void seek_write(unsigned int) override {}
        bool atEnd() const override { return true; }
        void onClose() override {}
        bool onOpen(Mode) override
        {
            setError("told");
            return true;
        }
        ZyString onRead(unsigned int) override { return ""; }
        unsigned int onWrite(ZyString const &) override { return 0; }
    };
    Bare device;
    device.open(ZyIODevice::Append);
    Bare copy(device);
    EXPECT_EQ(copy.mode(), ZyIODevice::Append);
    EXPECT_EQ(copy.lastError().toStdString(), "told");
    device.close();
    EXPECT_EQ(copy.mode(), ZyIODevice::Append);
    copy = device;
    EXPECT_EQ(copy.mode(), ZyIODevice::Closed);
}

TEST(ZyIODevice, Deliberate_cannot_open_name)
{
    ZyIODevice::CannotOpenException const empty;
    EXPECT_STREQ(empty.name(), "CannotOpenException");
    EXPECT_STREQ(empty.what(), "");
    EXPECT_STREQ(ZyIODevice::CannotOpenException("words").what(), "words");
}

TEST(ZyIODevice, MisuseIsNoFailureOfTheDevice)
{
    Probe device;
    try {
        device.read(1);
        FAIL();
    } catch (ZyIOException const &) {
        FAIL();
    } catch (ZyIOInvalidReadException const &) {
    }
}
